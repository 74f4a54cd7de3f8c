#include "platform/desktop/single_instance.h"

#include "support/files.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <optional>

namespace velmora {
namespace {

using Found = SingleInstance::Found;

TEST(SingleInstance, TheSecondIsRefusedUntilTheFirstIsGone) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"velmora.lock"_qs);
    std::optional<SingleInstance> first(file);
    EXPECT_EQ(first->found(), Found::Nobody);
    EXPECT_EQ(SingleInstance(file).found(), Found::Another);
    EXPECT_EQ(SingleInstance(file).found(), Found::Another)
        << "a refused start must not break the lock";
    first.reset();
    EXPECT_EQ(SingleInstance(file).found(), Found::Nobody);
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
    EXPECT_EQ(SingleInstance(lock.fileName()).found(), Found::Nobody);
}

TEST(SingleInstance, AFolderThatCannotBeWrittenDoesNotKeepTheProgramFromStarting) {
    EXPECT_EQ(SingleInstance(u"/proc/no/such/velmora.lock"_qs).found(), Found::Nobody);
}

TEST(SingleInstance, ALockThatTellsNothingIsARiddleAndNothingHangs) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.lock"_qs);
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& lock : {writeBytes(folder.filePath(u"empty.lock"_qs), ""), pipe,
                                writeBytes(folder.filePath(u"odd.lock"_qs), "no lock")}) {
        EXPECT_EQ(SingleInstance(lock).found(), Found::Riddle) << qPrintable(lock);
        EXPECT_TRUE(QFileInfo::exists(lock));
    }
}

} // namespace
} // namespace velmora
