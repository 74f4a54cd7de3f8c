#include "platform/devices/key_numbers.h"

#include <QKeyEvent>

#include <array>
#include <utility>

namespace velmora {

namespace {

constexpr std::array<std::pair<int, int>, 10> Named = {{{Qt::Key_Return, key::Enter},
                                                        {Qt::Key_Enter, key::Enter},
                                                        {Qt::Key_Escape, key::Escape},
                                                        {Qt::Key_Space, key::Space},
                                                        {Qt::Key_End, key::End},
                                                        {Qt::Key_Home, key::Home},
                                                        {Qt::Key_Left, key::Left},
                                                        {Qt::Key_Up, key::Up},
                                                        {Qt::Key_Right, key::Right},
                                                        {Qt::Key_Down, key::Down}}};
constexpr int FirstFunctionKey = 112;
/// X11's scan code of the key 1; those of 2 to 9 and 0 follow.
constexpr quint32 FirstDigitScanCode = 10;

} // namespace

int virtualKey(const QKeyEvent& event) {
    for (const auto& [qtKey, number] : Named) {
        if (event.key() == qtKey) {
            return number;
        }
    }
    // Digits, those of the number pad too, and letters are numbered as their capital characters.
    if ((event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9) ||
        (event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)) {
        return event.key();
    }
    // On keyboards whose digit row needs Shift the place of the key counts, as X11 numbers it.
    const quint32 scanCode = event.nativeScanCode();
    if (scanCode >= FirstDigitScanCode && scanCode < FirstDigitScanCode + 10) {
        return key::Digit0 + static_cast<int>((scanCode - FirstDigitScanCode + 1) % 10);
    }
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F24) {
        return event.key() - Qt::Key_F1 + FirstFunctionKey;
    }
    return 0;
}

} // namespace velmora
