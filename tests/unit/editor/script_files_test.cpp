#include "editor/script_files.h"

#include "editor/recent_files.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ScriptFiles, OnlyAScriptsOwnEndingIsCut) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"/a/show.rtf", u"/a/show"},       {u"/john.smith/show.rtf", u"/john.smith/show"},
        {u"/a.b/show", u"/a.b/show"},       {u"/a/v1.2.rtf", u"/a/v1.2"},
        {u"/a/.rtf", u"/a/.rtf"},           {u"/a/..rtf", u"/a/."},
        {u"Untitled.RTF", u"Untitled"},     {u".hidden", u".hidden"},
        {u"/a/Dr. Smith", u"/a/Dr. Smith"}, {u"/a/b.ODT", u"/a/b"},
        {u"/a/b.md", u"/a/b.md"},           {u"/a/b.docx.docx", u"/a/b.docx"}};
    for (const auto& [path, base] : cases) {
        EXPECT_EQ(scriptFileBase(QString::fromUtf16(path)), QString::fromUtf16(base));
    }
    EXPECT_EQ(folderOfScript(u"/a/b/c.rtf"_qs), u"/a/b/");
    EXPECT_EQ(folderOfScript(u"/c.rtf"_qs), u"/");
    EXPECT_EQ(folderOfScript(u"c.rtf"_qs), QString());
}

QString numbered(int i) {
    return u"/scripts/%1.rtf"_qs.arg(i);
}

TEST(RecentFiles, KeepTenDifferentPathsNewestFirst) {
    TestSession test;
    RecentFileTable recent(test.session.AppFolder);
    EXPECT_EQ(recent.paths(), QStringList());
    for (int i = 1; i <= 11; ++i) {
        recent.add(numbered(i));
    }
    recent.add(numbered(5));
    recent.add(u"/scripts/5.RTF"_qs);
    EXPECT_EQ(recent.paths(), QStringList({u"/scripts/5.RTF"_qs, numbered(5), numbered(11),
                                           numbered(10), numbered(9), numbered(8), numbered(7),
                                           numbered(6), numbered(4), numbered(3)}));
}

TEST(RecentFiles, FileHoldsTwoLinesARowAndEmptyLinesForEmptyRows) {
    TestSession test;
    RecentFileTable recent(test.session.AppFolder);
    recent.add(u"/a.rtf"_qs);
    recent.add(u"/é.txt"_qs);
    ASSERT_TRUE(recent.write(RecentFileTable::EntriesAfterAppend));
    EXPECT_EQ(test.read(RecentFileTable::fileName()),
              QByteArray("/\xE9.txt\r\n/\xE9.txt\r\n/a.rtf\r\n/a.rtf\r\n") +
                  QByteArray("\r\n").repeated(6));
    ASSERT_TRUE(recent.write(RecentFileTable::EntriesAfterInsert));
    EXPECT_EQ(test.read(RecentFileTable::fileName()).count('\n'), 20);
}

TEST(RecentFiles, FirstLoadOfARunKeepsTheListOfTheLastRun) {
    TestSession test;
    test.write(RecentFileTable::fileName(),
               "/old.rtf\r\n/old.rtf\r\n\r\n\r\n/older.rtf\n/older.rtf\n");
    RecentFileTable recent(test.session.AppFolder);
    recent.add(u"/new.rtf"_qs);
    EXPECT_EQ(recent.paths(), QStringList({u"/new.rtf"_qs, u"/old.rtf"_qs, u"/older.rtf"_qs}));
}

TEST(RecentFiles, OddFilesAndPathsDoNoHarm) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("/a\r\n"), QByteArray(4 << 20, '\n'),
                                    QByteArray("\xFF\xFE\x00", 3)}) {
        TestSession test;
        test.write(RecentFileTable::fileName(), bytes);
        RecentFileTable recent(test.session.AppFolder);
        recent.add(u"/two\nlines.rtf"_qs);
        recent.add(u"/other\rlines.rtf"_qs);
        recent.add(QString());
        EXPECT_EQ(recent.paths().filter(u"lines"_qs), QStringList());
        recent.add(u"/a.rtf"_qs);
        EXPECT_EQ(recent.paths().value(0), u"/a.rtf");
    }
    EXPECT_FALSE(RecentFileTable(u"/no/such/folder/"_qs).write(10));
}

} // namespace
} // namespace velmora
