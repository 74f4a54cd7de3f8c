#include "controllers/controller_buttons.h"

#include "core/arrangement.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ControllerButtons, EachButtonBecomesTheKeyOfItsFunction) {
    struct Row final {
        int keyCode, shift;
        int Settings::*setting;
        int function;
        int madeKey, madeShift;
    };
    const Row rows[] = {
        {135, 0, &Settings::ShuttleButton1, 1, 27, 0},
        {133, 1, &Settings::ShuttleButton2, 2, 134, 1},
        {135, 1, &Settings::ShuttleButton3, 3, 134, 0},
        {134, 1, &Settings::ShuttleButton4, 4, 133, 1},
        {134, 0, &Settings::ShuttleButton5, 5, 135, 0},
        {135, 0, &Settings::ShuttleButton1, 6, 120, 0},
        {135, 1, &Settings::ShuttleButton3, 7, 123, 0},
        {134, 1, &Settings::ShuttleButton4, 8, 121, 0},
        // Nothing, and what is no function at all.
        {135, 1, &Settings::ShuttleButton3, 0, 0, 0},
        {135, 1, &Settings::ShuttleButton3, -1, 0, 0},
        {135, 1, &Settings::ShuttleButton3, 9, 135, 1},
        // No buttons: the ring's last place, and typed keys.
        {133, 0, &Settings::ShuttleButton2, 1, 133, 0},
        {32, 1, &Settings::ShuttleButton1, 1, 32, 1},
    };
    for (const Row& row : rows) {
        Settings settings;
        settings.*row.setting = row.function;
        int keyCode = row.keyCode;
        int shift = row.shift;
        translateControllerButton(keyCode, shift, settings);
        EXPECT_EQ(keyCode, row.madeKey) << row.keyCode << "+" << row.shift << ": " << row.function;
        EXPECT_EQ(shift, row.madeShift) << row.keyCode << "+" << row.shift << ": " << row.function;
    }
}

TEST(ControllerButtons, OnlyTheWirelessControllersKeysAreRewritten) {
    for (const auto& [arriving, made] : {std::pair(66, 32), {39, 34}, {37, 33}, {38, 38}}) {
        int keyCode = arriving;
        translateWirelessKey(keyCode, controller::Trigger);
        EXPECT_EQ(keyCode, arriving);
        translateWirelessKey(keyCode, controller::RfWireless);
        EXPECT_EQ(keyCode, made);
    }
}

} // namespace
} // namespace velmora
