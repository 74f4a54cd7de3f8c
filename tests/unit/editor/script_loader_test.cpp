#include "editor/script_loader.h"

#include "editor/convert.h"
#include "editor/recent_files.h"
#include "editor/script_conventions.h"
#include "editor/script_saver.h"
#include "support/flat_text.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QDir>

namespace velmora {
namespace {

constexpr Rgb24 Red = 0x0000FF;

class ScriptLoaderTest : public ::testing::Test {
protected:
    ScriptLoaderTest() { applyEditorDefaults(session); }

    void loadFile(const QString& name, const QByteArray& bytes) {
        loader.loadScript(test.write(name, bytes));
    }
    void loadFileWithAnswer(MessageAnswer answer, const QString& name, const QByteArray& bytes) {
        test.messages.answers.push_back(answer);
        loadFile(name, bytes);
    }
    [[nodiscard]] CharacterFormat formatAt(int position) {
        rtb1.select(position, position + 1);
        CharacterFormat format;
        format.fontName = rtb1.SelFontName().value_or(QString());
        format.halfPoints = static_cast<int>(rtb1.SelFontSize().value_or(0) * 2);
        format.color = rtb1.SelColor().value_or(0xBAD);
        format.bold = rtb1.SelBold().value_or(false);
        return format;
    }
    /// What holds after every load, however it ended.
    void expectAllPutAway() const {
        EXPECT_FALSE(test.host.progressIsUp());
        EXPECT_TRUE(session.script.rtb2.isEmpty());
        EXPECT_FALSE(session.script.fileInProgress);
    }

    TestSession test;
    Session& session = test.session;
    RichTextBox& rtb1 = session.script.rtb1;
    RecentFileTable recent{session.AppFolder};
    ScriptLoader loader{session, test.host, &recent};
    const QString txt = u"a.txt"_qs;
    const QString rtf = u"a.rtf"_qs;
};

TEST_F(ScriptLoaderTest, PlainTextArrivesInTheCurrentLookWithBlanksForTabs) {
    test.host.fontName = u"DejaVu Sans"_qs;
    test.host.fontSize = 31;
    session.settings.ScreenTextColor = 255;
    loadFile(u"./"_qs + txt, "one\ttwo\r\nthree\nfour");
    EXPECT_EQ(rtb1.Text(), u"one two\r\nthree\r\nfour");
    EXPECT_EQ(rtb1.SelStart(), 0);
    EXPECT_TRUE(test.messages.boxes.empty());
    const CharacterFormat format = formatAt(5);
    EXPECT_EQ(format.fontName, u"DejaVu Sans");
    EXPECT_EQ(format.halfPoints, 62);
    EXPECT_EQ(format.color, Red);
    EXPECT_EQ(test.host.progress, QStringList({u"Loading File."_qs, QString()}));
    EXPECT_EQ(session.script.ScriptFileType, 1);
    EXPECT_EQ(session.settings.LastScriptFolder, session.AppFolder);
    EXPECT_EQ(session.script.ScriptFileName, test.path(txt)) << "a cleaned path";
    EXPECT_EQ(recent.paths(), QStringList(test.path(txt)));
    expectAllPutAway();
}

TEST_F(ScriptLoaderTest, RtfKeepsItsLookButForBlackOnBlackAndOffsets) {
    const QByteArray bytes =
        "{\\rtf1\\ansi{\\fonttbl{\\f0 DejaVu Serif;}}{\\colortbl;\\red255\\green0\\blue0;}"
        "\\pard\\qc\\li720\\fi-360\\f0\\fs40 black\\tab\\cf1\\b red\\par}";
    loadFile(rtf, bytes);
    EXPECT_TRUE(rtb1.Text().startsWith(u"black red"));
    EXPECT_EQ(formatAt(1).color, White);
    EXPECT_EQ(formatAt(1).fontName, u"DejaVu Serif");
    EXPECT_EQ(formatAt(1).halfPoints, 40);
    EXPECT_EQ(formatAt(7).color, Red);
    EXPECT_TRUE(formatAt(7).bold);
    rtb1.select(0, 3);
    EXPECT_EQ(rtb1.SelAlignment(), Alignment::Centre);
    EXPECT_FALSE(rtb1.SelHasOffset());
    rtb1.setText(QString());
    rtb1.setBackColor(0x800000);
    loadFile(rtf, bytes);
    EXPECT_EQ(formatAt(1).color, Black);
}

TEST_F(ScriptLoaderTest, NoPutsTheTextAtTheCaretAndReplacesNothing) {
    rtb1.setText(u"Hello world"_qs);
    rtb1.select(5, 8);
    loadFileWithAnswer(MessageAnswer::No, txt, ", my\r\nsmall");
    EXPECT_EQ(rtb1.Text(), u"Hello, my\r\nsmall world");
    EXPECT_EQ(rtb1.SelStart(), 5);
    EXPECT_EQ(rtb1.SelLength(), 0);
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    EXPECT_EQ(test.messages.boxes[0].text, u"Append New Text To The End Of Existing Text?");
    EXPECT_EQ(session.script.ExitAnswer, 7);
    EXPECT_EQ(test.read(RecentFileTable::fileName()).count('\n'), 20);
}

TEST_F(ScriptLoaderTest, YesAppendsAStoryOfItsOwn) {
    rtb1.setText(u"first"_qs);
    loadFileWithAnswer(MessageAnswer::Yes, txt, "second");
    EXPECT_EQ(rtb1.Text(), u"first~\r\n^----\r\nsecond");
    EXPECT_EQ(rtb1.SelStart(), 5);
    EXPECT_EQ(formatAt(6).color, White);
    EXPECT_EQ(test.read(RecentFileTable::fileName()).count('\n'), 10);
    loadFileWithAnswer(MessageAnswer::Yes, rtf, "{\\rtf1\\ansi third\\par}");
    EXPECT_TRUE(rtb1.Text().startsWith(u"first~\r\n^----\r\nsecond~\r\n^----\r\nthird"));
    expectAllPutAway();
}

TEST_F(ScriptLoaderTest, CancelChangesNothing) {
    rtb1.setText(u"text"_qs);
    rtb1.setSelStart(2);
    loadFileWithAnswer(MessageAnswer::Cancel, txt, "other");
    EXPECT_EQ(rtb1.Text(), u"text");
    EXPECT_EQ(rtb1.SelStart(), 2);
    EXPECT_EQ(session.script.ScriptFileName, QString());
    EXPECT_EQ(test.host.zoomsSent, 1);
    EXPECT_TRUE(test.read(RecentFileTable::fileName()).isNull());
    expectAllPutAway();
}

TEST_F(ScriptLoaderTest, DialogOpensInTheLastFolderAndMayBeCancelled) {
    session.settings.LastScriptFolder = u"/elsewhere/"_qs;
    loader.LoadText();
    ASSERT_EQ(test.dialogs.openRequests.size(), 1U);
    EXPECT_EQ(test.dialogs.openRequests[0].folder, u"/elsewhere/");
    EXPECT_EQ(session.settings.LastScriptFolder, u"/elsewhere/");
    EXPECT_EQ(test.host.focusGiven, 1);
    test.dialogs.choose(test.write(txt, "chosen"));
    loader.LoadText();
    EXPECT_EQ(rtb1.Text(), u"chosen");
    expectAllPutAway();
}

TEST_F(ScriptLoaderTest, AFileWithNothingToShowIsNamedAsSuch) {
    struct Case final {
        QString name;
        QByteArray bytes;
        bool told;
    };
    for (const Case& it : {Case{rtf, "", true}, Case{txt, "", true}, Case{txt, " \r\n\t\r\n", true},
                           Case{rtf, "{\\rtf1\\ansi{\\*\\unknown words}\\par}", true},
                           Case{rtf, "{\\rtf1\\ansi .}", false}, Case{txt, ".", false}}) {
        rtb1.setText(QString());
        loadFile(it.name, it.bytes);
        EXPECT_TRUE(test.messages.boxes.empty()) << it.bytes.toStdString();
        ASSERT_FALSE(test.host.notices.isEmpty());
        EXPECT_EQ(test.host.notices.last().contains(u"The file holds no text."_qs), it.told)
            << it.bytes.toStdString();
    }
}

TEST_F(ScriptLoaderTest, WhatWasLeftOutIsToldAndTheFileNotReplacedUnasked) {
    struct Case final {
        QByteArray rtf;
        QString notice;
    };
    for (const Case& it :
         {Case{"a{\\pict 01}{\\pict 02}{\\footnote b}", u"Left out: 2 pictures, 1 footnote."_qs},
          Case{"a{\\header b}{\\pict 01}{\\footnote b}{\\footnote c}",
               u"Left out: 1 picture, 1 header or footer, 2 footnotes."_qs},
          Case{"{\\footer b}{\\header b}",
               u"The file holds no text. Left out: 2 headers and footers."_qs},
          Case{"a", QString()}}) {
        rtb1.setText(QString());
        session.script.ownFile = u"before"_qs;
        loadFile(rtf, "{\\rtf1 " + it.rtf + "}");
        EXPECT_EQ(test.host.notices.value(test.host.notices.size() - 1), it.notice);
        EXPECT_EQ(session.script.ownFile, it.notice.isEmpty() ? test.path(rtf) : QString());
        TestSession unattended;
        testing::internal::CaptureStderr();
        EXPECT_EQ(convertScript(unattended.session, test.path(rtf), test.path(txt)), 0);
        EXPECT_EQ(testing::internal::GetCapturedStderr().find("Left out: ") != std::string::npos,
                  it.notice.contains(u"Left out: "_qs));
    }
    // A file whose text is appended later leaves the script its own file.
    loadFileWithAnswer(MessageAnswer::Yes, u"b.rtf"_qs, "{\\rtf1 b{\\pict 01}}");
    EXPECT_EQ(session.script.ownFile, test.path(rtf));
    EXPECT_EQ(test.host.notices.last(), u"Left out: 1 picture."_qs);
}

TEST_F(ScriptLoaderTest, FailureNamesFileCauseAndNextStepAndChangesNothing) {
    struct Case final {
        QString name;
        std::optional<QByteArray> bytes;
        QString said;
    };
    const Case cases[] = {
        {u"missing.rtf"_qs, std::nullopt, u"verify that the file exists"_qs},
        {u"missing.docx"_qs, std::nullopt, u"There is no such file."_qs},
        {u"caf\uFFFD.rtf"_qs, std::nullopt, u"other than UTF-8"_qs},
        {u"folder.rtf"_qs, std::nullopt, u"It is a folder.\r\n\r\nPlease choose a file"_qs},
        {u"binary.rtf"_qs, QByteArray("MZ\x90\x00\x03", 5), u"save it from there as RTF"_qs},
        {u"archive.odt"_qs, QByteArray("PK\x03\x04\x14\x00\x00\x08", 8),
         u"It holds something else than text."_qs},
        {u"old.doc"_qs, QByteArray("\xD0\xCF\x11\xE0"), u"Word is correctly installed."_qs},
        {u"new.DOCX"_qs, QByteArray("PK"), u"Word is correctly installed."_qs},
    };
    QDir().mkpath(test.path(u"folder.rtf"_qs));
    session.settings.LastScriptFolder = u"/elsewhere/"_qs;
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        for (const Case& c : cases) {
            test.messages.boxes.clear();
            rtb1.setText(u"the show"_qs);
            const FlatText before = flatten(rtb1.fragment());
            if (c.bytes) {
                test.write(c.name, *c.bytes);
            }
            test.messages.answers.push_back(answer);
            loader.loadScript(test.path(c.name));
            ASSERT_EQ(test.messages.boxes.size(), 2U) << c.name.toStdString();
            const FakeMessageBoxes::Box& box = test.messages.boxes[1];
            EXPECT_EQ(box.title, u"Could Not Load File");
            EXPECT_EQ(box.icon, MessageIcon::Critical);
            EXPECT_TRUE(
                box.text.startsWith(u"I could not load %1.\r\n\r\n"_qs.arg(test.path(c.name))));
            EXPECT_TRUE(box.text.contains(c.said)) << box.text.toStdString();
            EXPECT_EQ(flatten(rtb1.fragment()), before);
            EXPECT_EQ(session.script.ScriptFileName, QString());
            expectAllPutAway();
        }
    }
    EXPECT_TRUE(test.read(RecentFileTable::fileName()).isNull());
    EXPECT_EQ(session.settings.LastScriptFolder, u"/elsewhere/");
    EXPECT_TRUE(test.host.progress.contains(u"Converting Word File."_qs));
}

TEST_F(ScriptLoaderTest, NeitherLoadNorSaveStartsInsideAnother) {
    ScriptSaver saver(session, test.host);
    const QString other = test.write(u"other.txt"_qs, "other");
    int tries = 0;
    const auto tryAll = [&] {
        ++tries;
        loader.loadScript(other);
        loader.LoadText();
        saver.SaveText();
    };
    test.dialogs.whileOpen = tryAll;
    test.messages.whileOpen = tryAll;
    test.host.onProgress = [&](const QString&) { tryAll(); };
    test.pump.setEveryPump(tryAll);
    rtb1.setText(u"a"_qs);
    test.dialogs.choose(test.write(txt, "b"));
    test.messages.answers.push_back(MessageAnswer::Yes);
    loader.LoadText();
    EXPECT_EQ(rtb1.Text(), u"a~\r\n^----\r\nb");
    const int triesOfLoad = tries;
    EXPECT_GE(triesOfLoad, 8);
    test.dialogs.choose(test.path(u"saved.txt"_qs));
    saver.SaveText();
    EXPECT_GT(tries, triesOfLoad);
    EXPECT_EQ(test.read(u"saved.txt"_qs), "a~\n^----\nb");
    EXPECT_EQ(test.dialogs.openRequests.size() + test.dialogs.saveRequests.size(), 2U);
    session.show.ShowRunning = 1;
    loader.loadScript(other);
    EXPECT_EQ(rtb1.Text(), u"a~\r\n^----\r\nb");
}

TEST_F(ScriptLoaderTest, FontsThatAreNotInstalledAreNamedUntilTheNextLoad) {
    loadFile(rtf, "{\\rtf1\\ansi{\\fonttbl{\\f0 Nosuch Grotesk;}{\\f1 Arial;}}\\f0 text\\f1 x}");
    ASSERT_EQ(test.host.notices.size(), 1);
    EXPECT_FALSE(test.host.notices[0].contains(u"Arial"_qs)) << "the program's own default";
    EXPECT_TRUE(test.host.notices[0].contains(u"Nosuch Grotesk (shown as "))
        << test.host.notices[0].toStdString();
    rtb1.setText(QString());
    loadFile(txt, "text");
    EXPECT_FALSE(test.host.notices.value(1).contains(u"Nosuch"_qs));
}

TEST_F(ScriptLoaderTest, ALongLoadIsShownAndWhoCancelsItFindsAllAsItWas) {
    test.clock.setTicksPerRead(FakeClock::TicksPerSecond / 20);
    test.pump.setLimitSeconds(1e6);
    const QString path =
        test.write(rtf, "{\\rtf1 " + QByteArray("a line\\par ").repeated(80'000) + "}");
    rtb1.setText(u"kept text"_qs);
    rtb1.select(7, 3);
    session.script.ownFile = u"own"_qs;
    session.script.ScriptFileName = u"own"_qs;
    session.script.ScriptFileType = 1;
    int signalCount = 0;
    const auto count = [&] { ++signalCount; };
    QObject::connect(&rtb1, &RichTextBox::Change, &rtb1, count);
    for (const double cancelAt : {0.05, 0.4, 0.8, 2.0}) {
        test.host.cancelAt = cancelAt;
        test.host.shares.clear();
        test.messages.answers.push_back(MessageAnswer::Yes);
        loader.loadScript(path);
        const std::vector<double>& shares = test.host.shares;
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
        EXPECT_GE(shares.back(), std::min(cancelAt, 0.95));
        EXPECT_GT(test.pump.pumps(), static_cast<std::int64_t>(shares.size()));
        expectAllPutAway();
        if (cancelAt > 1) {
            break;
        }
        EXPECT_EQ(test.messages.boxes.size(), 1U) << cancelAt;
        test.messages.boxes.clear();
        EXPECT_EQ(rtb1.Text(), u"kept text");
        EXPECT_EQ(rtb1.SelStart(), 3);
        EXPECT_EQ(rtb1.caretPosition(), 3);
        EXPECT_EQ(rtb1.SelLength(), 4);
        EXPECT_EQ(signalCount, 0);
        EXPECT_EQ(session.script.ownFile, u"own");
        EXPECT_EQ(session.script.ScriptFileName, u"own");
        EXPECT_EQ(session.script.ScriptFileType, 1);
        EXPECT_TRUE(test.host.notices.isEmpty());
    }
    EXPECT_EQ(signalCount, 1);
    EXPECT_EQ(rtb1.textLength(), 9 + 10 + 80'000 * 8);
    EXPECT_TRUE(rtb1.Text().startsWith(u"kept text~\r\n^----\r\na line\r\na line"_qs));
    EXPECT_EQ(rtb1.SelStart(), 9);
    // A conversion needs no layout.
    test.host.shares.clear();
    EXPECT_TRUE(loader.loadUnattended(path));
    EXPECT_TRUE(std::ranges::all_of(test.host.shares, [](double share) { return share < 0.3; }));
}

TEST_F(ScriptLoaderTest, AnOverlongParagraphIsBrokenAfterAQuestion) {
    const QByteArray line = QByteArray("words of a line ").repeated(10'000);
    for (const MessageAnswer answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
        loadFileWithAnswer(answer, txt, line);
        ASSERT_EQ(test.messages.boxes.size(), 1U);
        EXPECT_TRUE(test.messages.boxes[0].text.contains(u"160,000 characters"_qs));
        test.messages.boxes.clear();
        EXPECT_EQ(rtb1.isEmpty(), answer == MessageAnswer::Cancel);
        EXPECT_EQ(session.script.ownFile, QString());
        expectAllPutAway();
    }
    QString text = rtb1.Text();
    EXPECT_GT(text.count(u"\r\n"_qs), 6);
    EXPECT_EQ(text.remove(u"\r\n"_qs), QString::fromLatin1(line));
    rtb1.setText(QString());
    EXPECT_TRUE(loader.loadUnattended(test.path(txt)));
    EXPECT_EQ(rtb1.Text(), QString::fromLatin1(line));
}

} // namespace
} // namespace velmora
