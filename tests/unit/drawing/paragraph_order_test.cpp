#include "platform/drawing/color.h"
#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/surface.h"
#include "unit/drawing/ink.h"

#include <gtest/gtest.h>

using namespace velmora;

namespace {

constexpr double Zoom = 4;

struct Case final {
    const char* name;
    QString text;
    Direction direction = Direction::FromText;
};

void PrintTo(const Case& example, std::ostream* out) {
    *out << example.name;
}

const QString Greeting = u"says \u05e9\u05dc\u05d5\u05dd \u05dc\u05db\u05d5\u05dc\u05dd, 12 "
                         u"\u05d7\u05d1\u05e8\u05d9\u05dd, (\u05d0\u05d1) and "
                         u"more [\u05d2\u05d3 45, 67 \u05d4\u05d5] to the end."_qs;
const QString Arabic =
    u"\u0627\u0644\u0633\u0644\u0627\u0645 (\u0639\u0644\u064a\u0643\u0645), 12 "
    u"\u0635\u062f\u064a\u0642, Qt 6.4, \u0627\u0644\u0639\u0631\u0628\u064a\u0629!"_qs;

/// In three formats, so that runs and directions end at different places.
void fill(RichTextBox& box, const QString& text, Direction direction, double wrapPixels) {
    const QString font = u"DejaVu Sans"_qs;
    const qsizetype third = text.size() / 3;
    RichTextFragment fragment;
    appendParagraph(fragment,
                    {styled(text.left(third), font, 28),
                     styled(text.mid(third, third), font, 28, "b"),
                     styled(text.mid(2 * third), font, 28, "i")},
                    {Alignment::Left, direction});
    box.setWrapWidth(wrapPixels);
    box.setFragment(fragment);
}

Ink printed(const RichTextBox& box, int line) {
    const int position = box.lineIndex(line);
    PrintBox print;
    print.width = box.wrapWidth() * Zoom + 40;
    print.rowHeight = 2 * static_cast<int>(box.layout().lineAt(line).height);
    print.zoom = Zoom;
    Surface surface(static_cast<int>(print.width), print.rowHeight);
    surface.fill(toPixel(Black));
    GlyphMaskCache cache;
    box.printRange(surface, position, box.lineLength(position), print, cache);
    return inkOf(surface.image());
}

} // namespace

class ParagraphOrder : public ::testing::TestWithParam<Case> {};

INSTANTIATE_TEST_SUITE_P(
    Texts, ParagraphOrder,
    ::testing::Values(
        Case{"Mixed", Greeting}, Case{"MixedFromTheRight", Greeting, Direction::RightToLeft},
        Case{"Arabic", Arabic}, Case{"ArabicFromTheLeft", Arabic, Direction::LeftToRight},
        Case{"LatinFromTheRight", u"Well (as they say), 12, 13 - or [so]! And (again)."_qs,
             Direction::RightToLeft},
        Case{"SoftHyphens",
             u"\u05d0\u05d1 extra\u00adordinary words hyphen\u00adation \u05d2\u05d3"_qs},
        Case{"Plain", u"A line (of words), 12 and [more] of them."_qs}),
    [](const auto& it) { return it.param.name; });

// The narrow widths break the text at every one of its words, and inside of some.
TEST_P(ParagraphOrder, OfEveryLineIsThatOfTheEditor) {
    for (const double width : {60.0, 90.0, 125.0, 170.0, 298.0, 2000.0}) {
        RichTextBox box;
        fill(box, GetParam().text, GetParam().direction, width);
        for (int line = 0; line < box.lineCount(); ++line) {
            const Ink expected = drawnByTheTextEngine(box, line, Zoom);
            const Ink ink = printed(box, line);
            ASSERT_GT(expected.amount, 0);
            EXPECT_NEAR(ink.amount / expected.amount, 1, 0.01) << width << " line " << line;
            EXPECT_LT(unlikeness(expected, ink), 0.3) << width << " line " << line;
        }
    }
}

TEST(StrokesOfALine, EndWhereTheTextEngineEndsThem) {
    // Broken lines, a last line with and without room for its blanks.
    for (const QString& text :
         {u"one two  three four five, six   "_qs, u"\u05e9\u05dc one \u05d5\u05dd  two  "_qs}) {
        for (const double width : {60.0, 74.0, 90.0, 125.0, 170.0, 2000.0}) {
            RichTextBox box;
            fill(box, text, Direction::LeftToRight, width);
            box.selectAll();
            box.setSelUnderline(true);
            box.setSelStrikeThru(true);
            for (int line = 0; line < box.lineCount(); ++line) {
                const Ink expected = drawnByTheTextEngine(box, line, Zoom);
                const Ink ink = printed(box, line);
                EXPECT_NEAR(ink.right - ink.left, expected.right - expected.left, 3)
                    << text.toStdString() << width << " line " << line;
            }
        }
    }
}

TEST(ParagraphOrderOfMarkedText, ClosesUpWhereMarkersAreLeftOut) {
    const QString lines = u"%1says \u05e9\u05dc\u05d5\u05dd, %2 12 \u05d0\u05d1,\u2028"
                          u"%1\u05d2\u05d3 (45%2), Qt\u2028"
                          u"%1\u05d2\u05d3 and%2, more%1%2"_qs;
    for (const Direction direction : {Direction::LeftToRight, Direction::RightToLeft}) {
        RichTextBox bare;
        RichTextBox marked;
        fill(bare, QString(lines).remove(u"%1"_qs).remove(u"%2"_qs), direction, 2000);
        fill(marked, lines.arg(u"^"_qs, u"~"_qs), direction, 2000);
        // One format: how kerning falls on the borders of formats is not the matter here.
        for (RichTextBox* box : {&bare, &marked}) {
            box->selectAll();
            box->setSelBold(false);
            box->setSelItalic(false);
        }
        for (int line = 0; line < 3; ++line) {
            const Ink expected = printed(bare, line);
            const Ink ink = printed(marked, line);
            EXPECT_NEAR(ink.left, expected.left, 1) << int(direction) << line;
            EXPECT_NEAR(ink.right, expected.right, 1) << int(direction) << line;
            EXPECT_LT(unlikeness(expected, ink), 0.3) << int(direction) << line;
        }
    }
}
