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
    const QString file = folder.filePath(QStringLiteral("velmora.lock"));
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
    ended.start(QStringLiteral("true"), QStringList());
    ASSERT_TRUE(ended.waitForStarted());
    const qint64 deadProcess = ended.processId();
    ASSERT_TRUE(ended.waitForFinished());
    QFile lock(folder.filePath(QStringLiteral("velmora.lock")));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray::number(deadProcess) + "\nvelmora\n" +
               QSysInfo::machineHostName().toUtf8() + '\n');
    lock.close();
    EXPECT_TRUE(SingleInstance(lock.fileName()).isFirst());
}

TEST(SingleInstance, AFolderThatCannotBeWrittenDoesNotKeepTheProgramFromStarting) {
    EXPECT_TRUE(SingleInstance(QStringLiteral("/proc/no/such/velmora.lock")).isFirst());
}

} // namespace
} // namespace velmora
