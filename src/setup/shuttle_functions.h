#pragma once

#include "core/settings.h"

#include <QStringView>

#include <array>

namespace velmora {

inline constexpr int ShuttleButtonCount = 5;

/// The settings of the shuttle's buttons, in the buttons' order.
inline constexpr std::array<int Settings::*, ShuttleButtonCount> ShuttleButtons = {
    &Settings::ShuttleButton1, &Settings::ShuttleButton2, &Settings::ShuttleButton3,
    &Settings::ShuttleButton4, &Settings::ShuttleButton5};

/// What a button can do: the function with number n is entry n - 1.
inline constexpr std::array<QStringView, 8> ShuttleFunctions = {
    u"Exit To Editor",    u"Next Bookmark", u"Pause/Resume",        u"Previous Bookmark",
    u"Reverse Direction", u"Toggle Arrow",  u"Toggle Blank Screen", u"Toggle Full Screen"};

/// A button without a function of 1 to 8 takes its default.
inline void limitShuttleButtons(Settings& settings) {
    const Settings defaults;
    for (int Settings::*button : ShuttleButtons) {
        if (settings.*button < 1 || settings.*button > static_cast<int>(ShuttleFunctions.size())) {
            settings.*button = defaults.*button;
        }
    }
}

} // namespace velmora
