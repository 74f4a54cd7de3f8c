#include "controllers/controller_buttons.h"

#include "core/arrangement.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

constexpr std::array<std::pair<int, int>, 3> WirelessKeys = {
    {{key::B, key::Space}, {key::Right, key::PageDown}, {key::Left, key::PageUp}}};

constexpr int LastFunction = ButtonFunctions.back().number;

} // namespace

void limitShuttleButtons(Settings& settings) {
    for (const ShuttleButton& button : ShuttleButtons) {
        int& function = settings.*button.setting;
        if (function < 1 || function > LastFunction) {
            function = button.defaultFunction;
        }
    }
}

void translateWirelessKey(int& keyCode, int controllerType) {
    if (controllerType != controller::RfWireless) {
        return;
    }
    const auto row = std::find_if(WirelessKeys.begin(), WirelessKeys.end(),
                                  [keyCode](const auto& pair) { return pair.first == keyCode; });
    if (row != WirelessKeys.end()) {
        keyCode = row->second;
    }
}

void translateControllerButton(int& keyCode, int& shift, const Settings& settings) {
    const auto button = std::find_if(
        ShuttleButtons.begin(), ShuttleButtons.end(), [&](const ShuttleButton& candidate) {
            return candidate.keyCode == keyCode && candidate.shift == shift;
        });
    if (button == ShuttleButtons.end()) {
        return;
    }
    const int function = settings.*button->setting;
    if (function > LastFunction) {
        return;
    }
    const bool named = function >= 1;
    const auto index = static_cast<std::size_t>(function - 1);
    keyCode = named ? ButtonFunctions[index].keyCode : 0;
    shift = named ? ButtonFunctions[index].shift : key::NoShift;
}

} // namespace velmora
