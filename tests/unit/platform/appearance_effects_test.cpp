#include "platform/desktop/appearance_effects.h"
#include "support/fake_appearance_service.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Setting = AppearanceSetting;
using Writes = std::vector<std::pair<Setting, int>>;

TEST(AppearanceEffects, SomeSettingsNeedAnother) {
    FakeAppearanceService desktop;
    ClsAppearanceEffects effects(desktop);
    effects.setFontSmoothingType(2);
    effects.setFontSmoothingType(0);
    effects.setMenuFade(false);
    effects.setCursorShadow(true);
    EXPECT_EQ(desktop.written, (Writes{{Setting::FontSmoothing, 1},
                                       {Setting::FontSmoothingType, 2},
                                       {Setting::FontSmoothingType, 0},
                                       {Setting::MenuAnimation, 1},
                                       {Setting::MenuFade, 0},
                                       {Setting::CursorShadow, 1}}));
    EXPECT_TRUE(desktop.lastKept);
    effects.setSendChange(false);
    effects.setUIEffects(true);
    EXPECT_FALSE(desktop.lastKept);
    EXPECT_TRUE(effects.UIEffects());
}

TEST(AppearanceEffects, ARefusalIsToldAndReadsAsOff) {
    FakeAppearanceService desktop;
    desktop.values[Setting::DropShadows] = 1;
    desktop.refuses = true;
    ClsAppearanceEffects effects(desktop);
    int errors = 0;
    effects.EffectSettingError = [&errors] { ++errors; };
    EXPECT_FALSE(effects.DropShadows());
    effects.setDropShadows(true);
    EXPECT_EQ(errors, 2);
}

TEST(AppearanceEffects, OnlySubpixelSmoothingIsOffDuringAShow) {
    struct Row final {
        int smoothing, type;
        bool touched;
    };
    for (const Row& row : {Row{0, 0, false}, {1, 1, false}, {1, 2, true}, {0, 2, true}}) {
        FakeAppearanceService desktop;
        desktop.values = {{Setting::FontSmoothing, row.smoothing},
                          {Setting::FontSmoothingType, row.type}};
        SmoothingAroundShow around(desktop);
        around.end();
        around.begin();
        if (row.touched) {
            EXPECT_EQ(desktop.values[Setting::FontSmoothing], 0);
            EXPECT_EQ(desktop.values[Setting::FontSmoothingType], 0);
        }
        around.end();
        around.end();
        EXPECT_EQ(desktop.values[Setting::FontSmoothing], row.touched ? 1 : row.smoothing);
        EXPECT_EQ(desktop.values[Setting::FontSmoothingType], row.type);
        EXPECT_EQ(desktop.written.empty(), !row.touched);
    }
}

} // namespace
} // namespace velmora
