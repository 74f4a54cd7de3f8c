#pragma once

#include "core/settings.h"
#include "platform/devices/key_numbers.h"

#include <array>

namespace velmora {

/// What a button of the shuttle can do: its number in the settings, its text in the lists, and the
/// key that stands for it.
struct ButtonFunction final {
    int number;
    const char16_t* text;
    int keyCode;
    int shift;
};

/// In the order of the lists, which is that of the alphabet; numbers 1 to 8.
inline constexpr std::array<ButtonFunction, 8> ButtonFunctions = {{
    {1, u"Exit To Editor", key::Escape, key::NoShift},
    {2, u"Next Bookmark", key::F23, key::Shift},
    {3, u"Pause/Resume", key::F23, key::NoShift},
    {4, u"Previous Bookmark", key::F22, key::Shift},
    {5, u"Reverse Direction", key::F24, key::NoShift},
    {6, u"Toggle Arrow", key::F9, key::NoShift},
    {7, u"Toggle Blank Screen", key::F12, key::NoShift},
    {8, u"Toggle Full Screen", key::F10, key::NoShift},
}};

/// A button of the shuttle: the key that it sends, its setting, and its function until one is
/// chosen.
struct ShuttleButton final {
    int keyCode;
    int shift;
    int Settings::*setting;
    int defaultFunction;
};

/// In the order of ShuttleButton1 to ShuttleButton5.
inline constexpr std::array<ShuttleButton, 5> ShuttleButtons = {{
    {key::F24, key::NoShift, &Settings::ShuttleButton1, 5},
    {key::F22, key::Shift, &Settings::ShuttleButton2, 4},
    {key::F24, key::Shift, &Settings::ShuttleButton3, 8},
    {key::F23, key::Shift, &Settings::ShuttleButton4, 2},
    {key::F23, key::NoShift, &Settings::ShuttleButton5, 3},
}};

/// Puts the default in the place of each function that is none of 1 to 8.
void limitShuttleButtons(Settings& settings);

/// Rewrites the three keys of the RF wireless controller, B, Right and Left, into pause, next and
/// previous bookmark. Any other controller's keys stay.
void translateWirelessKey(int& keyCode, int controllerType);

/// Turns the key of a shuttle button into that of the function that the button's setting names: 0
/// and below clear it, above 8 leaves it. Any other key stays.
void translateControllerButton(int& keyCode, int& shift, const Settings& settings);

} // namespace velmora
