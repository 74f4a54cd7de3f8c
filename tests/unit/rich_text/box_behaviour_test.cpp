#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// Counts the signals of a box from here on.
class Signals final {
public:
    explicit Signals(RichTextBox& box) {
        QObject::connect(&box, &RichTextBox::Change, &m_context, [this] { ++m_changes; });
        QObject::connect(&box, &RichTextBox::SelChange, &m_context, [this] { ++m_movements; });
        QObject::connect(&box, &RichTextBox::appearanceChanged, &m_context,
                         [this] { ++m_appearances; });
    }

    /// Changes, movements and appearances since the last call, as one number of three digits.
    int take() {
        const int result = 100 * m_changes + 10 * m_movements + m_appearances;
        m_changes = m_movements = m_appearances = 0;
        return result;
    }

private:
    QObject m_context;
    int m_changes = 0;
    int m_movements = 0;
    int m_appearances = 0;
};

// "ab", line end, "c", line end inside of the paragraph, "d", a character of two units, line end.
const QString Sample = u"ab\r\nc\vd\U0001F600\r\n"_qs;

TEST(BoxBehaviour, PositionsCountLineEndsAndPairsAsTwo) {
    RichTextBox box;
    box.setText(Sample);
    EXPECT_EQ(box.Text(), Sample);
    EXPECT_EQ(box.textLength(), Sample.size());
    struct Case {
        int set;
        int told;
        int document;
    };
    for (const Case& c :
         {Case{-9, 0, 0}, Case{2, 2, 2}, Case{3, 2, 2}, Case{4, 4, 3}, Case{6, 6, 5}, Case{7, 7, 6},
          Case{8, 7, 6}, Case{9, 9, 8}, Case{10, 9, 8}, Case{11, 11, 9}, Case{99, 11, 9}}) {
        box.setSelStart(c.set);
        EXPECT_EQ(box.SelStart(), c.told) << c.set;
        EXPECT_EQ(box.toDocument(c.set), c.document) << c.set;
        EXPECT_EQ(box.fromDocument(c.document), c.told) << c.set;
    }
}

TEST(BoxBehaviour, LineEndsAreAllOneKindAndWhatADocumentReservesForItselfDoesNotBreakIt) {
    RichTextBox box;
    box.setSelText(u"a\rb\nc\u2029d\r\n\r\ne\vf"_qs);
    EXPECT_EQ(box.Text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne\vf"_qs);
    EXPECT_EQ(box.SelStart(), box.textLength());
    box.setText(u"a\uFDD0b\uFDD1c\uFFFC\u0001\u0085%1d"_qs.arg(QChar(u'\0')));
    EXPECT_EQ(box.Text(), u"a\uFFFDb\uFFFDc\uFFFC \r\n d"_qs);
    EXPECT_EQ(box.document().blockCount(), 2);
}

TEST(BoxBehaviour, TextKeepsUpWithEditsAskedForInTheMiddleOfThemOrNotAtAll) {
    RichTextBox box;
    QString asked;
    auto listener = std::make_unique<QObject>();
    QObject::connect(&box.document(), &QTextDocument::contentsChange, listener.get(),
                     [&] { asked = box.Text(); });
    box.setText(u"start"_qs);
    QString expected = box.Text();
    for (int i = 0; i < 40; ++i) { // more than the text is kept for without a question
        box.select(i, i + 1);
        box.setSelText(u"a\r\n"_qs);
        expected.replace(i, 1, u"a\r\n"_qs);
        ASSERT_EQ(asked, expected) << i;
        ASSERT_EQ(box.Text(), expected) << i;
        box.setSelStart(0);
        box.setSelText(u"x"_qs);
        expected.prepend(u'x');
        ASSERT_EQ(box.SelText(), QString());
    }
    listener.reset();
    for (int i = 0; i < 40; ++i) {
        box.setSelText(u"\v"_qs);
        expected.insert(1 + i, u'\v');
    }
    EXPECT_EQ(box.Text(), expected);
}

TEST(BoxBehaviour, TextKeepsUpWithEditsFarDown) {
    RichTextBox box;
    box.setText(u"some words\r\n"_qs.repeated(1'000));
    for (const int position : {3'999, 4'001, 9'000}) {
        QString expected = box.Text();
        box.select(position, position + 3);
        expected.replace(box.SelStart(), box.SelLength(), u"new"_qs);
        box.setSelText(u"new"_qs);
        EXPECT_TRUE(box.Text() == expected) << position;
    }
}

TEST(BoxBehaviour, AnEmptyTextHasTheDefaultFormat) {
    RichTextBox box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_EQ(box.lineCount(), 1);
    EXPECT_EQ(box.GetLineFromChar(0), 0);
    EXPECT_EQ(box.lineIndex(0), 0);
    EXPECT_EQ(box.lineIndex(1), -1);
    EXPECT_EQ(box.lineIndex(-1), -1);
    EXPECT_EQ(box.verticalPosition(0), 1);
    const double before = box.lineHeight(0);
    box.setDefaultFormat({u"Arial"_qs, 96, White});
    EXPECT_EQ(box.SelColor(), White);
    EXPECT_NEAR(box.lineHeight(0), before * 4, 0.5);
    // A colour set in the empty text is the colour of what is typed, wherever the caret has been.
    box.setSelColor(0xFF);
    box.selectAll();
    box.setSelText(u"red"_qs);
    EXPECT_EQ(box.SelColor(), 0xFFu);
    box.setText(u"white"_qs);
    EXPECT_EQ(box.SelColor(), White);
    box.setDefaultFormat({u"Arial"_qs, 30});
    EXPECT_EQ(box.SelFontSize(), 48);
    EXPECT_TRUE(box.setTextRTF({}));
    EXPECT_EQ(box.SelFontSize(), 15);
}

TEST(BoxBehaviour, SignalsOnceAndOnlyOnADifference) {
    RichTextBox box;
    box.setText(u"some\r\ntext"_qs);
    Signals counter(box);
    const auto changed = [&counter](int expected, const char* what) {
        EXPECT_EQ(counter.take(), expected) << what;
    };
    box.setText(u"some\r\ntext"_qs);
    changed(0, "the same text");
    box.setSelStart(0);
    changed(0, "the caret where it is");
    box.select(0, 4);
    changed(10, "a selection");
    box.setSelColor(Black);
    changed(0, "the colour it has");
    box.setSelColor(White);
    changed(100, "another colour");
    box.setSelAlignment(Alignment::Left);
    changed(0, "the alignment it has");
    box.selectAll();
    changed(10, "a longer selection");
    box.setSelAlignment(Alignment::Centre);
    changed(100, "another alignment");
    box.setSelText(u"new"_qs);
    changed(110, "another text");
    box.setSelText({});
    changed(0, "nothing in the place of nothing");
    box.setSelBold(true);
    changed(0, "a format of what is typed next");
    EXPECT_EQ(box.Find(u"missing"_qs, 0), -1);
    changed(0, "no match");
    EXPECT_FALSE(box.setTextRTF("no rich text"));
    changed(0, "a failed replacement");
    EXPECT_EQ(box.Text(), u"new"_qs);
    box.setZoom(box.zoom());
    box.setZoom(0);
    box.setWrapWidth(box.wrapWidth());
    box.setRedraw(true);
    box.setBackColor(box.BackColor());
    changed(0, "the appearance it has");
    box.setZoom(4);
    box.setWrapWidth(200);
    box.setRedraw(false);
    box.setBackColor(Black);
    changed(4, "another appearance");
    // The contents are complete when the signal comes.
    QString seen;
    QObject::connect(&box, &RichTextBox::Change, &box, [&] { seen = box.Text(); });
    box.setSelText(u"er"_qs);
    EXPECT_EQ(seen, u"newer"_qs);
}

TEST(BoxBehaviour, NamesFontsThatAreMissing) {
    RichTextBox box;
    const QString missing = u"No Such Font Anywhere"_qs;
    box.setFragment(
        {{{missing, 30}, {u"dejavu sans"_qs, 30}}, {{u"abcd"_qs, {{2, 0}, {2, 1}}, 0, {}}}});
    const std::vector<RichTextBox::MissingFont> fonts = box.missingFonts();
    ASSERT_EQ(fonts.size(), 1u);
    EXPECT_EQ(fonts.front().name, missing);
    EXPECT_FALSE(fonts.front().substitute.isEmpty());
    box.select(0, 2);
    box.setSelText({});
    EXPECT_TRUE(box.missingFonts().empty());
}

} // namespace
} // namespace velmora
