#include "platform/files/whole_file.h"
#include "support/files.h"
#include "support/full_disk.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace velmora;

namespace {

bool brokenDisk = false;

} // namespace

/// In the place of the system's: a disk that took every byte may still fail to keep them.
extern "C" int fdatasync(int descriptor) {
    if (brokenDisk) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fdatasync, descriptor));
}

namespace {

class WholeFile : public ::testing::Test {
protected:
    /// The folder holds this file with these bytes, and nothing else.
    void expectOnly(const QString& name, const QByteArray& bytes) const {
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System),
                  QStringList(name));
        EXPECT_EQ(bytesOf(folder.filePath(name)), bytes);
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"script.rtf"_qs);
};

} // namespace

// Qt's own buffer takes up to 16,384 bytes without a word.
TEST_F(WholeFile, DiskThatTakesNoMoreLeavesTheOldFile) {
    for (const int size : {100, 16'384, 16'385, 200'000}) {
        writeBytes(path, "old");
        {
            const FileSizeLimit limit(50);
            const Outcome written = writeWholeFile(path, QByteArray(size, 'n'));
            EXPECT_FALSE(written) << size;
            EXPECT_TRUE(written.reason().contains(u"File too large"_qs))
                << qPrintable(written.reason());
        }
        expectOnly(u"script.rtf"_qs, "old");
    }
}

TEST_F(WholeFile, FullDiskLeavesTheOldFile) {
    const SmallDisk disk(folder.path(), 32'768);
    if (!disk.mounted()) {
        GTEST_SKIP() << "no right to mount a small disk here";
    }
    writeBytes(path, QByteArray(20'000, 'o'));
    for (const int size : {16'000, 60'000}) {
        const Outcome written = writeWholeFile(path, QByteArray(size, 'n'));
        EXPECT_TRUE(written.reason().contains(u"No space left"_qs)) << size;
        expectOnly(u"script.rtf"_qs, QByteArray(20'000, 'o'));
    }
    EXPECT_TRUE(writeWholeFile(path, "fits"));
    expectOnly(u"script.rtf"_qs, "fits");
}

TEST_F(WholeFile, DiskThatFailsBehindTheWritesLeavesTheOldFile) {
    writeBytes(path, "old");
    brokenDisk = true;
    const Outcome written = writeWholeFile(path, "new");
    brokenDisk = false;
    EXPECT_TRUE(written.reason().contains(u"Input/output error"_qs));
    expectOnly(u"script.rtf"_qs, "old");
}

TEST_F(WholeFile, OnlyRegularFilesAreReadAndReplaced) {
    writeBytes(path, "text");
    const QString pipe = folder.filePath(u"pipe"_qs);
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    const QString device = folder.filePath(u"device"_qs);
    ASSERT_TRUE(QFile::link(u"/dev/null"_qs, device));
    for (const QString& node : {pipe, device, folder.path()}) {
        QByteArray bytes = "as before";
        EXPECT_FALSE(readWholeFile(node, 1000, bytes)) << qPrintable(node);
        EXPECT_EQ(bytes, "as before");
        EXPECT_FALSE(writeWholeFile(node, "new")) << qPrintable(node);
        EXPECT_TRUE(QFileInfo::exists(node) && !QFileInfo(node).isFile());
    }
    const QString link = folder.filePath(u"link"_qs);
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_TRUE(writeWholeFile(link, "through the link"));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(bytesOf(path), "through the link");
    QByteArray bytes;
    EXPECT_FALSE(readWholeFile(link, 15, bytes)) << "larger than the limit";
    EXPECT_TRUE(readWholeFile(link, 16, bytes));
    EXPECT_EQ(bytes, "through the link");
}

TEST_F(WholeFile, PrivateOneIsForNobodyElse) {
    ASSERT_TRUE(writeWholeFile(path, "x", QFile::ReadOwner | QFile::WriteOwner));
    struct stat status {};
    ASSERT_EQ(stat(qPrintable(path), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}
