#include "platform/devices/key_numbers.h"

#include <QChar>
#include <QKeyEvent>

#include <array>
#include <string_view>
#include <utility>

namespace velmora {

namespace {

constexpr std::array<std::pair<int, int>, 13> Named = {{{Qt::Key_Return, key::Enter},
                                                        {Qt::Key_Enter, key::Enter},
                                                        {Qt::Key_Escape, key::Escape},
                                                        {Qt::Key_Backspace, key::Backspace},
                                                        {Qt::Key_Space, key::Space},
                                                        {Qt::Key_PageUp, key::PageUp},
                                                        {Qt::Key_PageDown, key::PageDown},
                                                        {Qt::Key_End, key::End},
                                                        {Qt::Key_Home, key::Home},
                                                        {Qt::Key_Left, key::Left},
                                                        {Qt::Key_Up, key::Up},
                                                        {Qt::Key_Right, key::Right},
                                                        {Qt::Key_Down, key::Down}}};
/// X11's scan code of the key 1; those of 2 to 9 and 0 follow.
constexpr quint32 FirstDigitScanCode = 10;
/// X11's scan codes of F13 to F24.
constexpr quint32 F13ScanCode = 191;
constexpr quint32 F24ScanCode = 202;
/// A row of letters on a Latin keyboard, from X11's scan code of its first one on.
struct LetterRow final {
    quint32 firstScanCode;
    std::string_view letters;
};
constexpr std::array<LetterRow, 3> LetterRows = {
    {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};

/// Whether a key writes what only another script has. A Latin keyboard may have digits, signs and
/// letters of its own in any place.
bool writesAnotherScript(int qtKey) {
    if (qtKey >= Qt::Key_Escape) {
        return false;
    }
    const QChar::Script script = QChar::script(static_cast<char32_t>(qtKey));
    return script != QChar::Script_Latin && script != QChar::Script_Common;
}

} // namespace

int latinKey(const QKeyEvent& event) {
    if (!writesAnotherScript(event.key())) {
        return event.key();
    }
    for (const LetterRow& row : LetterRows) {
        const quint32 place = event.nativeScanCode() - row.firstScanCode;
        if (event.nativeScanCode() >= row.firstScanCode && place < row.letters.size()) {
            return row.letters[place];
        }
    }
    return event.key();
}

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
        return event.key() - Qt::Key_F1 + key::F1;
    }
    if (scanCode >= F13ScanCode && scanCode <= F24ScanCode) {
        return key::F13 + static_cast<int>(scanCode - F13ScanCode);
    }
    const int letter = latinKey(event);
    return letter == key::B || letter == key::F ? letter : 0;
}

int shiftState(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    return (held.testFlag(Qt::ShiftModifier) ? key::Shift : key::NoShift) +
           (held.testFlag(Qt::ControlModifier) ? key::Control : key::NoShift) +
           (held.testFlag(Qt::AltModifier) ? key::Alt : key::NoShift);
}

} // namespace velmora
