#include "editor/script_conventions.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr Rgb24 Red = 0x0000FF;

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

} // namespace
} // namespace velmora
