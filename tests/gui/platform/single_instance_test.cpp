#include "platform/desktop/single_instance.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>

#include <optional>

namespace velmora {
namespace {

TEST(SingleInstance, TheSecondIsRefusedUntilTheFirstIsGone) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"velmora.lock"_qs);
    std::optional<SingleInstance> first(file);
    EXPECT_TRUE(first->isFirst());
    EXPECT_FALSE(SingleInstance(file).isFirst());
    EXPECT_FALSE(SingleInstance(file).isFirst()) << "a refused start must not break the lock";
    first.reset();
    EXPECT_TRUE(SingleInstance(file).isFirst());
}

TEST(SingleInstance, ALockLeftByACrashIsTakenOver) {
    const QTemporaryDir folder;
    QProcess ended;
    ended.start(u"true"_qs, QStringList());
    ASSERT_TRUE(ended.waitForStarted());
    const qint64 deadProcess = ended.processId();
    ASSERT_TRUE(ended.waitForFinished());
    QFile lock(folder.filePath(u"velmora.lock"_qs));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray::number(deadProcess) + "\nvelmora\n" +
               QSysInfo::machineHostName().toUtf8() + '\n');
    lock.close();
    EXPECT_TRUE(SingleInstance(lock.fileName()).isFirst());
}

TEST(SingleInstance, AFolderThatCannotBeWrittenDoesNotKeepTheProgramFromStarting) {
    EXPECT_TRUE(SingleInstance(u"/proc/no/such/velmora.lock"_qs).isFirst());
}

} // namespace
} // namespace velmora
