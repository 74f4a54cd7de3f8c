#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/long_words.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_writer.h"
#include "support/fonts.h"
#include "support/random_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmora {
namespace {

void fill(RichTextBox& box, const QString& text, const ParagraphFormat& paragraph = {},
          int halfPoints = 52) {
    box.setFragment(fragmentOfText(text, {u"Arial"_qs, halfPoints}, paragraph));
}

TEST(LayoutLines, CoverTheTextAndFitTheWidth) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomText random(seed);
        RichTextBox box;
        box.setWrapWidth(60 + random.below(400));
        box.setFragment(random.fragment(0, 12, 40));
        const DocumentLayout& layout = box.layout();
        int expectedStart = 0;
        double expectedTop = 0;
        for (int number = 0; number < layout.lineCount(); ++number) {
            const LinePlace place = layout.lineAt(number);
            ASSERT_TRUE(place.isValid());
            EXPECT_EQ(place.number, number);
            EXPECT_EQ(place.start(), expectedStart);
            EXPECT_DOUBLE_EQ(place.top, expectedTop);
            EXPECT_GT(place.height, 0);
            EXPECT_EQ(layout.lineOfPosition(place.start()).number, number);
            EXPECT_EQ(layout.lineAtHeight(place.top + place.height / 2).number, number);
            const bool isOneCharacter = place.line.textLength() <= 2;
            if (!isOneCharacter) {
                EXPECT_LE(place.line.horizontalAdvance(), place.line.width() + 1.0 / 64);
            }
            expectedStart += place.line.textLength();
            expectedTop += place.height;
            if (expectedStart == place.block.position() + place.block.length() - 1 &&
                place.line.lineNumber() == place.block.layout()->lineCount() - 1) {
                ++expectedStart;
            }
        }
        EXPECT_EQ(expectedStart, box.document().characterCount());
        EXPECT_DOUBLE_EQ(layout.height(), expectedTop);
        EXPECT_FALSE(layout.lineAt(layout.lineCount()).isValid());
        EXPECT_EQ(layout.lineAtHeight(-5).number, 0);
        EXPECT_EQ(layout.lineAtHeight(expectedTop + 5).number, layout.lineCount() - 1);
    }
}

TEST(LayoutLines, BreakTheSameAtEveryZoom) {
    RandomText random(3);
    RichTextBox box;
    box.setFragment(random.fragment(0, 40, 60));
    const int count = box.lineCount();
    const std::vector<RichTextBox::LineMetrics> unzoomed = box.lineMetrics(count);
    for (const double zoom : {0.5, 1.75, 4.0, 6.0, 12.8}) {
        box.setZoom(zoom);
        ASSERT_EQ(box.lineCount(), count);
        const std::vector<RichTextBox::LineMetrics> zoomed = box.lineMetrics(count);
        for (int line = 0; line < count; ++line) {
            const auto index = static_cast<size_t>(line);
            EXPECT_EQ(zoomed[index].index, unzoomed[index].index);
            EXPECT_EQ(zoomed[index].length, unzoomed[index].length);
            const double top = box.layout().lineAt(line).top;
            EXPECT_EQ(zoomed[index].y, 1 + static_cast<int>(std::floor(top * zoom / 6)));
        }
    }
}

TEST(LayoutLines, HeightIsAscentDescentAndLeadingOfTheHighestFont) {
    RichTextBox box;
    fill(box, u"low\r\n\r\nlow and high"_qs);
    const double low = box.lineHeight(0);
    // 26 points are 34.67 pixels.
    EXPECT_NEAR(low, 26.0 * 96 / 72 * metricsOf(u"Liberation Sans"_qs).lineSpacing() / 1000, 0.4);
    EXPECT_EQ(box.lineHeight(1), low);
    box.select(box.textLength() - 4, box.textLength());
    box.setSelFontSize(52);
    EXPECT_EQ(box.lineHeight(0), low);
    EXPECT_NEAR(box.lineHeight(box.lineCount() - 1), 2 * low, 0.5);
    // An empty paragraph is as high as what would be typed in it.
    box.setSelStart(5);
    box.setSelFontSize(78);
    EXPECT_NEAR(box.lineHeight(1), 3 * low, 0.5);
    EXPECT_EQ(box.lineHeight(7), 0);
}

TEST(LayoutLines, StandWhereAlignmentAndOffsetsPutThem) {
    constexpr double Width = 1800;
    constexpr double Twenty = 20 * UnitsPerPoint;
    struct Case {
        ParagraphFormat format;
        /// Of the first line's text and of the second's, in reference units.
        double first, second;
        bool atTheRight;
    };
    for (const Case& c :
         {Case{{Alignment::Left}, 0, 0, false}, Case{{Alignment::Right}, Width, Width, true},
          Case{{Alignment::Left, {}, 400, -400}, 0, Twenty, false},
          Case{{Alignment::Right, Direction::RightToLeft, 400},
               Width - Twenty,
               Width - Twenty,
               true},
          Case{{Alignment::Left, {}, -400}, 0, 0, false},
          Case{{Alignment::Left, {}, 1 << 20}, Width / 2, Width / 2, false}}) {
        RichTextBox box;
        box.setWrapWidth(Width / 6);
        fill(box, u"some words\u2028some words"_qs, c.format);
        for (const int line : {0, 1}) {
            const QRectF text = box.layout().lineAt(line).line.naturalTextRect();
            EXPECT_NEAR(c.atTheRight ? text.right() : text.left(), line == 0 ? c.first : c.second,
                        0.1);
        }
    }
}

TEST(LayoutLines, TheFirstLetterTellsTheDirectionHoweverTheTextCameIn) {
    const QString hebrew = u"12 (^\u05E9\u05DC\u05D5\u05DD) abc."_qs;
    const QString arabic = u"\u0645\u0631\u062D\u0628\u0627 abc."_qs;
    const QString latin = u"abc \u05E9\u05DC\u05D5\u05DD."_qs;
    const auto byFile = [](RichTextBox& box, const QString& text) {
        (void)box.setTextRTF(writeRtf(fragmentOfText(text, {})).replace("\\rtlpar", ""));
    };
    const auto byHand = [](RichTextBox& box, const QString& text) {
        for (const QChar letter : text) {
            box.setSelText(letter);
        }
    };
    for (const auto& fillBox : {std::function<void(RichTextBox&, const QString&)>(byFile),
                                {byHand},
                                {&RichTextBox::setText}}) {
        for (const QString& text : {hebrew, arabic, latin, u"12."_qs}) {
            RichTextBox box;
            fillBox(box, text);
            const QTextLine line = box.layout().lineAt(0).line;
            const double stop = line.cursorToX(static_cast<int>(text.size()));
            EXPECT_EQ(stop < line.cursorToX(0), text == hebrew || text == arabic)
                << text.toStdString();
            EXPECT_NEAR(line.naturalTextRect().left(), 0, 0.1) << "the alignment stays";
        }
    }
}

TEST(LayoutLines, TrailingBlanksDoNotMoveTheText) {
    for (const bool rightToLeft : {false, true}) {
        const QString word = rightToLeft ? u"\u05E9\u05DC\u05D5\u05DD"_qs : u"middle"_qs;
        for (const Alignment alignment : {Alignment::Left, Alignment::Centre, Alignment::Right}) {
            RichTextBox bare;
            RichTextBox trailing;
            fill(bare, word, {alignment});
            fill(trailing, u"%1   \u2028%1\t  "_qs.arg(word), {alignment});
            // Qt gives U+2028 in a right-to-left line the width of a blank.
            for (int line = rightToLeft ? 1 : 0; line < 2; ++line) {
                const QTextLine place = trailing.layout().lineAt(line).line;
                const QTextLine expected = bare.layout().lineAt(0).line;
                EXPECT_NEAR(place.cursorToX(place.textStart()), expected.cursorToX(0), 0.1)
                    << rightToLeft << int(alignment) << line;
                EXPECT_NEAR(place.cursorToX(place.textStart() + 3), expected.cursorToX(3), 0.1)
                    << rightToLeft << int(alignment) << line;
            }
            EXPECT_TRUE(alignment != Alignment::Centre ||
                        std::abs(bare.layout().lineAt(0).line.naturalTextRect().center().x() -
                                 bare.layout().wrapWidth() / 2) < 0.1);
        }
    }
}

/// What is filled to the brim at once must break where a slow search for a break would have broken.
TEST(LayoutLines, LongWordsBreakAsShortOnesDo) {
    const QString letters = u"abcdefghijklmnopqrstuvwxyz"_qs;
    const QString longWord = letters.repeated(100);
    const QString chinese = QString(QChar(0x4E2D)).repeated(1500);
    const QString texts[] = {u"a few words %1 and words %1 %2"_qs.arg(longWord, letters),
                             u"%1\u2028b %2"_qs.arg(longWord, chinese), chinese + longWord};
    for (const QString& text : texts) {
        RichTextBox box;
        fill(box, text);
        QTextLayout reference(text, QFont());
        const QTextBlock block = box.document().firstBlock();
        QTextOption option = block.layout()->textOption();
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QFont font = block.begin().fragment().charFormat().font();
        reference.setFont(font);
        reference.setTextOption(option);
        reference.beginLayout();
        for (int number = 0;; ++number) {
            QTextLine line = reference.createLine();
            if (!line.isValid()) {
                EXPECT_EQ(number, box.lineCount());
                break;
            }
            line.setLineWidth(box.layout().wrapWidth());
            ASSERT_EQ(box.layout().lineAt(number).start(), line.textStart()) << number;
        }
        reference.endLayout();
    }
    LongWords words(longWord + u' ' + chinese);
    const int length = static_cast<int>(longWord.size());
    EXPECT_TRUE(words.holds(100));
    EXPECT_FALSE(words.holds(length - LongWords::MaxWordLength));
    EXPECT_FALSE(words.holds(length + 10));
}

/// The document tells its listeners of a change before it tells its layout.
TEST(LayoutLines, AnswerInTheMiddleOfAChange) {
    RichTextBox box;
    fill(box, u"one\r\ntwo\r\nthree"_qs);
    int asked = 0;
    QObject::connect(&box.document(), &QTextDocument::contentsChange, &box, [&] {
        ++asked;
        EXPECT_GT(box.layout().height(), 0);
        EXPECT_EQ(box.layout().lineCount(), box.document().blockCount());
        EXPECT_TRUE(box.layout().lineAtHeight(1e9).isValid());
    });
    for (const QString& text : {u"x\r\ny\r\n"_qs, QString(), u"z"_qs}) {
        box.select(1, 8);
        box.setSelText(text);
        EXPECT_EQ(box.lineCount(), box.document().blockCount());
        EXPECT_DOUBLE_EQ(box.layout().height(), box.lineCount() * box.lineHeight(0) * 6);
    }
    EXPECT_GE(asked, 3);
}

} // namespace
} // namespace velmora
