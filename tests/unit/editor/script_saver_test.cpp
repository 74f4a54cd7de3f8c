#include "editor/script_saver.h"

#include "editor/convert.h"
#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "support/flat_text.h"
#include "support/full_disk.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

namespace velmora {
namespace {

constexpr int TextFilter = 1;
constexpr int RichTextFilter = 2;

class ScriptSaverTest : public ::testing::Test {
protected:
    ScriptSaverTest() {
        applyEditorDefaults(session);
        session.script.rtb1.setText(u"white text"_qs);
        session.script.TextChanged = 1;
    }
    void saveAs(const QString& path, int filter) {
        test.dialogs.choose(path, filter);
        saver.SaveText();
    }
    /// What holds after every save, however it ended.
    void expectAllPutAway() const {
        EXPECT_FALSE(test.host.progressIsUp());
        EXPECT_TRUE(session.script.rtb2.isEmpty());
        EXPECT_EQ(session.script.ExitSaveInProgress, 0);
        EXPECT_FALSE(session.script.fileInProgress);
    }

    TestSession test;
    Session& session = test.session;
    ScriptSaver saver{session, test.host};
};

TEST_F(ScriptSaverTest, RtfOnDiskIsBlackAndTheEditorStaysWhite) {
    saveAs(test.path(u"a.rtf"_qs), RichTextFilter);
    RichTextBox file;
    ASSERT_TRUE(file.LoadFile(test.path(u"a.rtf"_qs), FileFormat::Rtf));
    EXPECT_EQ(file.Text(), u"white text");
    file.selectAll();
    EXPECT_EQ(file.SelColor(), Black);
    session.script.rtb1.selectAll();
    EXPECT_EQ(session.script.rtb1.SelColor(), White);
    EXPECT_EQ(session.script.TextChanged, 0);
    EXPECT_EQ(session.script.ScriptFileType, 0);
    EXPECT_EQ(session.settings.LastScriptFolder, session.AppFolder);
    EXPECT_EQ(test.host.progress, QStringList({u"Saving Document"_qs, QString()}));
    EXPECT_EQ(test.host.focusGiven, 1);
    expectAllPutAway();
}

TEST_F(ScriptSaverTest, FilterDecidesTheNameAndTheFormat) {
    struct Case final {
        const char16_t* typed;
        int filter;
        const char16_t* written;
    };
    QDir(session.AppFolder).mkpath(u"my.scripts"_qs);
    for (const Case& c :
         {Case{u"a.rtf", TextFilter, u"a.txt"}, Case{u"b.txt", RichTextFilter, u"b.rtf"},
          Case{u"my.scripts/show.rtf", RichTextFilter, u"my.scripts/show.rtf"},
          Case{u"v1.2.rtf", RichTextFilter, u"v1.2.rtf"},
          Case{u"Interview with Dr. Smith", RichTextFilter, u"Interview with Dr. Smith.rtf"},
          Case{u"Interview with Dr. Jones", TextFilter, u"Interview with Dr. Jones.txt"},
          Case{u"SCRIPT.RTF", RichTextFilter, u"SCRIPT.RTF"},
          Case{u"SCRIPT.Docx", RichTextFilter, u"SCRIPT.rtf"}}) {
        saveAs(test.path(QString::fromUtf16(c.typed)), c.filter);
        const QString written = QString::fromUtf16(c.written);
        EXPECT_EQ(session.script.ScriptFileName, test.path(written));
        EXPECT_EQ(test.read(written).startsWith("{\\rtf1"), c.filter == RichTextFilter)
            << written.toStdString();
        // The dialog's question about replacing a file must be about the one that is written.
        const FileDialogRequest& request = test.dialogs.saveRequests.back();
        ASSERT_TRUE(request.writtenPath);
        EXPECT_EQ(request.writtenPath({test.path(QString::fromUtf16(c.typed)), c.filter}),
                  test.path(written));
    }
    EXPECT_EQ(test.read(u"a.txt"_qs), "white text");
}

TEST_F(ScriptSaverTest, OffersTheCurrentNameAndItsFilter) {
    saver.SaveText();
    EXPECT_EQ(test.dialogs.saveRequests.back().fileName, u"Untitled.rtf");
    EXPECT_EQ(test.dialogs.saveRequests.back().filterIndex, RichTextFilter);
    EXPECT_EQ(session.script.TextChanged, 1);
    saveAs(test.path(u"a.TXT"_qs), TextFilter);
    saver.SaveText();
    EXPECT_EQ(test.dialogs.saveRequests.back().fileName, test.path(u"a.TXT"_qs));
    EXPECT_EQ(test.dialogs.saveRequests.back().filterIndex, TextFilter);
}

TEST_F(ScriptSaverTest, OnlyTheScriptsOwnFileIsReplacedWithoutAQuestion) {
    ScriptLoader loader(session, test.host, nullptr);
    const QString first = test.write(u"first.txt"_qs, "first");
    const QString second = test.write(u"second.txt"_qs, "second");
    session.script.rtb1.setText(QString());
    loader.loadScript(first);
    test.messages.answers.push_back(MessageAnswer::Yes);
    loader.loadScript(second);
    // The name offered is the appended file's: to save there must not go unasked.
    saver.SaveText();
    EXPECT_EQ(test.dialogs.saveRequests.back().fileName, second);
    EXPECT_EQ(test.dialogs.saveRequests.back().ownFile, first);
    const QString both = test.path(u"both.rtf"_qs);
    saveAs(both, RichTextFilter);
    EXPECT_EQ(session.script.ownFile, both);
    // Loaded or saved, it is known as it was left here, and no longer when others have changed it.
    const auto known = [&](const QString& path) {
        saver.SaveText();
        return test.dialogs.saveRequests.back().ownFileStamp == FileStamp::of(path);
    };
    EXPECT_TRUE(known(both));
    session.script.rtb1.setText(QString());
    loader.loadScript(first);
    EXPECT_TRUE(known(first));
    test.write(u"first.txt"_qs, "of others");
    EXPECT_FALSE(known(first));
}

TEST_F(ScriptSaverTest, EmptyScriptIsNeverSavedAndOneWithAFileIsToldSo) {
    session.script.rtb1.setText(QString());
    session.script.ownFile = u"old.rtf"_qs;
    saver.SaveText();
    EXPECT_EQ(session.script.TextChanged, 1) << "the file still holds the text";
    EXPECT_TRUE(test.host.notices.value(0).contains(u"old.rtf"_qs));
    session.script.ownFile.clear();
    session.script.ExitSaveInProgress = 1;
    saver.SaveText();
    EXPECT_EQ(session.script.TextChanged, 0);
    EXPECT_EQ(test.host.notices.size(), 1);
    EXPECT_TRUE(test.dialogs.saveRequests.empty());
    expectAllPutAway();
}

TEST_F(ScriptSaverTest, FailureKeepsTheOldFileAndSaysWhy) {
    const QString path = test.path(u"folder.rtf"_qs);
    QDir().mkpath(path);
    session.script.ExitSaveInProgress = 1;
    session.script.SaveFailed = 1;
    session.script.ScriptFileName = u"before.txt"_qs;
    session.script.ScriptFileBase = u"before"_qs;
    session.script.ScriptFileType = 1;
    session.settings.LastScriptFolder = u"/elsewhere/"_qs;
    saveAs(path, RichTextFilter);
    EXPECT_EQ(session.script.ScriptFileName, u"before.txt");
    EXPECT_EQ(session.script.ScriptFileBase, u"before");
    EXPECT_EQ(session.script.ScriptFileType, 1);
    EXPECT_EQ(session.settings.LastScriptFolder, u"/elsewhere/");
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    EXPECT_EQ(test.messages.boxes[0].title, u"Could Not Save File");
    EXPECT_TRUE(test.messages.boxes[0].text.contains(path));
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(session.script.TextChanged, 1);
    EXPECT_EQ(session.script.SaveFailed, 1);
    EXPECT_EQ(test.host.focusGiven, 1);
    expectAllPutAway();
    // A full disk, and a script so small that it is in the program's own buffer until the end.
    const QString full = test.write(u"full.rtf"_qs, "old");
    {
        const FileSizeLimit limit(20);
        saveAs(full, RichTextFilter);
    }
    EXPECT_EQ(test.messages.boxes.size(), 2U);
    EXPECT_EQ(test.read(u"full.rtf"_qs), "old");
    EXPECT_EQ(session.script.TextChanged, 1);
}

TEST_F(ScriptSaverTest, ExitLearnsWhetherTheScriptWasWritten) {
    session.script.SaveFailed = 1;
    session.script.ExitSaveInProgress = 1;
    saver.SaveText();
    EXPECT_EQ(session.script.SaveFailed, 1);
    expectAllPutAway();
    const int focusAfterCancel = test.host.focusGiven;
    session.script.ExitSaveInProgress = 1;
    saveAs(test.path(u"a.txt"_qs), TextFilter);
    EXPECT_EQ(session.script.SaveFailed, 0);
    // The window is on its way out.
    EXPECT_EQ(test.host.focusGiven, focusAfterCancel);
    expectAllPutAway();
}

TEST_F(ScriptSaverTest, WhiteScriptComesBackWhiteAndInItsFormats) {
    session.script.rtb1.select(1, 4);
    session.script.rtb1.setSelBold(true);
    session.script.rtb1.setSelAlignment(Alignment::Centre);
    saveAs(test.path(u"a.rtf"_qs), RichTextFilter);
    const FlatText before = flatten(session.script.rtb1.fragment());
    session.script.rtb1.setText(QString());
    ScriptLoader(session, test.host, nullptr).loadScript(test.path(u"a.rtf"_qs));
    EXPECT_EQ(flatten(session.script.rtb1.fragment()), before);
}

TEST(Convert, RefusesAnEndingThatItCannotWrite) {
    TestSession test;
    const QString in = test.write(u"in.txt"_qs, "words");
    for (const QString& name :
         {u"a.docx"_qs, u"a.DOC"_qs, u"a"_qs, u"a.rtf.pdf"_qs, u"artf"_qs, QString()}) {
        EXPECT_EQ(convertScript(test.session, in, test.path(name)), 1) << name.toStdString();
        EXPECT_FALSE(QFileInfo(test.path(name)).isFile()) << name.toStdString();
    }
    for (const QString& name : {u"b.RTF"_qs, u"b.Txt"_qs}) {
        EXPECT_EQ(convertScript(test.session, in, test.path(name)), 0) << name.toStdString();
        EXPECT_TRUE(test.read(name).contains("words")) << name.toStdString();
    }
}

} // namespace
} // namespace velmora
