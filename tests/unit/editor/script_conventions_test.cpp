#include "editor/script_conventions.h"

#include "platform/rich_text/rich_text_box.h"
#include "support/flat_text.h"
#include "support/random_text.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr Rgb24 Red = 0x0000FF;

bool isBlackOrWhite(const std::optional<Rgb24>& color) {
    return color == Black || color == White;
}

/// The colour rule as it is defined on the control: block by block, and in a mixed block character
/// by character.
void walkInBlocks(RichTextBox& box, Rgb24 target, Rgb24 other, int blockSize) {
    box.selectAll();
    if (isBlackOrWhite(box.SelColor())) {
        box.setSelColor(target);
        return;
    }
    for (int block = 0; block <= box.textLength(); block += blockSize) {
        box.select(block, block + blockSize);
        if (isBlackOrWhite(box.SelColor())) {
            box.setSelColor(target);
            continue;
        }
        for (int character = block; character < block + blockSize; ++character) {
            box.select(character, character + 1);
            if (box.SelColor() == other) {
                box.setSelColor(target);
            }
        }
    }
}

/// The tab rule as it is defined on the control.
void replaceTabsOneByOne(RichTextBox& box) {
    int at = 0;
    while ((at = box.Find(u"\t"_qs, 0)) >= 0) {
        box.select(at, at + 1);
        box.setSelText(u" "_qs);
    }
}

/// Text in these colours and its own formats; the last paragraph is not empty.
RichTextFragment textIn(const std::vector<Rgb24>& colors, unsigned seed) {
    RandomTextParts parts;
    parts.colors = colors;
    parts.runsCutCharacters = false;
    RandomText random(seed, parts);
    RichTextFragment text = random.fragment(0, 11, 30);
    text.paragraphs.push_back({u"the last words"_qs, {{9, 0}, {5, 1}}, 1, {}});
    return text;
}

TEST(ColourRule, GivesWhatTheWalkInBlocksGives) {
    const std::vector<std::vector<Rgb24>> palettes = {{Black},
                                                      {White},
                                                      {Red},
                                                      {Black, White},
                                                      {Black, Red},
                                                      {White, Red},
                                                      {Black, White, Red, 0x800000}};
    for (unsigned round = 0; round < 60; ++round) {
        const RichTextFragment text = textIn(palettes[round % palettes.size()], round);
        for (const auto& [target, other, blockSize] :
             {std::tuple{White, Black, 50}, {Black, White, 30}}) {
            RichTextBox walked;
            walked.setFragment(text);
            walkInBlocks(walked, target, other, blockSize);
            RichTextFragment exchanged = text;
            applyColourRule(exchanged, target, other);
            ASSERT_EQ(flatten(walked.fragment()), flatten(exchanged)) << "round " << round;
        }
    }
}

TEST(ColourRule, DependsOnTheBackgroundAndLeavesNoTextInTheColourOfItsOwn) {
    constexpr Rgb24 Yellow = 0x00FFFF;
    constexpr Rgb24 DarkBlue = 0x800000;
    struct Case final {
        Rgb24 background, color, behind;
        Rgb24 newColor, newBehind;
    };
    for (const Case& c :
         {Case{Black, Black, 0, White, 0}, Case{Black, White, 0, White, 0},
          Case{Black, Red, 0, Red, 0}, Case{White, White, 0, Black, 0},
          Case{White, Black, 0, Black, 0}, Case{DarkBlue, Black, 0, Black, 0},
          Case{0x010000, White, 0, White, 0}, Case{Black, Black, White, White, 0},
          Case{Black, Black, Yellow, White, Yellow}, Case{Black, Red, White, Red, White}}) {
        RichTextFragment text{{{QString(), 24, c.color, c.behind}}, {}};
        applyColourRuleForBackground(text, c.background);
        EXPECT_EQ(text.formats[0].color, c.newColor) << c.color << " on " << c.background;
        EXPECT_EQ(text.formats[0].backColor, c.newBehind) << c.color << " on " << c.behind;
    }
}

TEST(TabRule, GivesWhatFindingThemOneByOneGives) {
    for (unsigned round = 0; round < 20; ++round) {
        RichTextFragment text = textIn({Black, Red}, round);
        RichTextBox box;
        box.setFragment(text);
        replaceTabsOneByOne(box);
        replaceTabs(text);
        ASSERT_EQ(flatten(box.fragment()), flatten(text)) << "round " << round;
    }
}

TEST(OffsetRule, KeepsTheAlignment) {
    RichTextFragment text;
    text.paragraphs.resize(1);
    text.paragraphs[0].format = {Alignment::Centre, true, 720, -360};
    clearOffsets(text);
    EXPECT_EQ(text.paragraphs[0].format, (ParagraphFormat{Alignment::Centre, true, 0, 0}));
}

TEST(PlainTextLook, CoversEveryCharacterAndEveryEmptyLine) {
    TestSession test;
    test.session.settings.ScreenTextColor = 255;
    const CharacterFormat look = plainTextLook(test.session, u"DejaVu Sans"_qs, 30.5);
    EXPECT_EQ(look.color, Red);
    EXPECT_EQ(look.halfPoints, 61);
    RichTextFragment text = textIn({Black, White}, 3);
    const QString before = flatten(text).text;
    applyPlainTextLook(text, look);
    const FlatText flat = flatten(text);
    EXPECT_EQ(flat.text, before);
    EXPECT_EQ(flat.formats, std::vector(flat.formats.size(), look));
    EXPECT_EQ(plainTextLook(test.session, QString(), 1e9).halfPoints,
              CharacterFormat::MaxHalfPoints);
}

} // namespace
} // namespace velmora
