#include "platform/desktop/appearance_effects.h"
#include "support/fake_appearance_service.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Setting = AppearanceSetting;

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
