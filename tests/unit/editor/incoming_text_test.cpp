#include "editor/incoming_text.h"

#include "editor/script_conventions.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QMimeData>
#include <QUrl>

namespace velmora {
namespace {

constexpr Rgb24 Red = 0x0000FF;
constexpr Rgb24 DarkBlue = 0x800000;

/// RTF of these contents, in a font and a size that the editor's boxes do not show. \cf1 is red.
QByteArray rtfOf(const char* contents) {
    return QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil DejaVu Serif;}}"
                      "{\\colortbl;\\red255\\green0\\blue0;\\red255\\green255\\blue255;}"
                      "\\f0\\fs28 ") +
           contents + "}";
}

/// An editor with text in it, into which something comes.
class IncomingText : public ::testing::Test {
protected:
    IncomingText() {
        applyEditorDefaults(test.session);
        rtb1().setText(u"abcdef"_qs);
        rtb1().select(2, 4);
    }
    [[nodiscard]] RichTextBox& rtb1() { return test.session.script.rtb1; }
    void enter(const QByteArray& rtf, const QString& plain = QString()) {
        QMimeData data;
        if (!rtf.isEmpty()) {
            data.setData(u"text/rtf"_qs, rtf);
        }
        if (!plain.isEmpty()) {
            data.setText(plain);
        }
        insertIncomingText(test.session, test.host, data);
    }
    /// Selects one character of the script.
    RichTextBox& at(int position) {
        rtb1().select(position, position + 1);
        return rtb1();
    }

    TestSession test;
};

TEST_F(IncomingText, ParagraphsTooLongForTheEditorAreBrokenOrStayOutside) {
    const QString before = rtb1().Text();
    QMimeData data;
    data.setText(u"word "_qs.repeated(40'000));
    insertIncomingText(test.session, test.host, data);
    EXPECT_EQ(test.messages.boxes.size(), 1U);
    EXPECT_EQ(rtb1().Text(), before);
    test.messages.answers.push_back(MessageAnswer::Ok);
    insertIncomingText(test.session, test.host, data);
    EXPECT_GT(rtb1().Text().count(u"\r\n"_qs), 8);
    EXPECT_EQ(rtb1().Text().count(u"word "_qs), 40'000);
}

TEST_F(IncomingText, RichTextKeepsItsEffectsAndTakesTheFontShown) {
    test.host.fontSize = 31.5;
    rtb1().setBackColor(DarkBlue);
    enter(rtfOf("\\pard\\qc\\li720\\fi-360\\b\\i x\\par\\ul y\\par"));
    EXPECT_EQ(rtb1().Text(), u"abx\r\ny\r\nef"_qs);
    EXPECT_EQ(at(2).SelBold(), true);
    EXPECT_EQ(at(2).SelItalic(), true);
    EXPECT_EQ(at(2).SelColor(), Black) << "readable there";
    EXPECT_EQ(at(5).SelUnderline(), true);
    EXPECT_EQ(at(5).SelAlignment(), Alignment::Centre);
    rtb1().select(2, 6);
    EXPECT_EQ(rtb1().SelFontName(), test.host.fontName);
    EXPECT_EQ(rtb1().SelFontSize(), 31.5);
    rtb1().selectAll();
    EXPECT_FALSE(rtb1().SelHasOffset());
}

TEST_F(IncomingText, PlainTextTakesThePrompterLookWhateverStandsAround) {
    rtb1().selectAll();
    rtb1().setSelBold(true);
    rtb1().setSelColor(Red);
    rtb1().setSelFontName(u"DejaVu Serif"_qs);
    test.session.settings.ScreenTextColor = 0x00FFFF;
    rtb1().select(2, 4);
    enter({}, u"x\ty"_qs);
    EXPECT_EQ(rtb1().Text(), u"abx yef"_qs);
    rtb1().select(2, 5);
    EXPECT_EQ(rtb1().SelColor(), Rgb24{0x00FFFF});
    EXPECT_EQ(rtb1().SelBold(), false);
    EXPECT_EQ(rtb1().SelFontName(), test.host.fontName);
    EXPECT_EQ(rtb1().SelFontSize(), test.host.fontSize);
    EXPECT_EQ(at(5).SelBold(), true);
}

TEST_F(IncomingText, NothingEntersWhereThereIsNoTextOrSomethingElseRuns) {
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(test.write(u"a.txt"_qs, "a"))});
    insertIncomingText(test.session, test.host, file);
    insertIncomingText(test.session, test.host, QMimeData());
    test.session.show.ShowRunning = 1;
    enter(rtfOf("x"), u"x"_qs);
    test.session.show.ShowRunning = 0;
    // A load keeps its text in the staging control meanwhile.
    test.session.script.fileInProgress = true;
    test.session.script.rtb2.setText(u"being loaded"_qs);
    enter(rtfOf("x"), u"x"_qs);
    EXPECT_EQ(test.session.script.rtb2.Text(), u"being loaded"_qs);
    EXPECT_EQ(rtb1().Text(), u"abcdef"_qs);
    EXPECT_EQ(rtb1().SelLength(), 2);
}

} // namespace
} // namespace velmora
