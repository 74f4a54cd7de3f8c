#include "editor/script_conventions.h"

#include "support/flat_text.h"
#include "support/random_text.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr Rgb24 Red = 0x0000FF;

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
          Case{Black, Black, Yellow, White, 0}, Case{Black, Black, DarkBlue, White, DarkBlue},
          Case{White, White, Yellow, Black, Yellow}, Case{White, White, DarkBlue, Black, 0},
          Case{Black, Red, White, Red, White}}) {
        RichTextFragment text{{{QString(), 24, c.color, c.behind}}, {}};
        applyColourRuleForBackground(text, c.background);
        EXPECT_EQ(text.formats[0].color, c.newColor) << c.color << " on " << c.background;
        EXPECT_EQ(text.formats[0].backColor, c.newBehind) << c.color << " on " << c.behind;
    }
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
