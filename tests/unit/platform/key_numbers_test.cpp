#include "platform/devices/key_numbers.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace velmora {
namespace {

TEST(KeyNumbers, FollowFromTheKeyElseFromItsPlace) {
    struct Row final {
        int qtKey;
        quint32 scanCode;
        int number;
    };
    const Row rows[] = {
        {Qt::Key_Backspace, 22, 8},
        {Qt::Key_PageUp, 112, 33},
        {Qt::Key_PageDown, 117, 34},
        {Qt::Key_B, 56, 66},
        {Qt::Key_F3, 69, 114},
        {Qt::Key_F13, 0, 124},
        {Qt::Key_F24, 0, 135},
        // F13 to F24 under the meanings that key maps give them, or none.
        {Qt::Key_Tools, 191, 124},
        {Qt::Key_MicMute, 198, 131},
        {Qt::Key_unknown, 202, 135},
        {0, 201, 134},
        {0, 190, 0},
        {0, 203, 0},
        // A key map of the user's own goes before the place.
        {Qt::Key_Space, 191, 32},
        {Qt::Key_F5, 192, 116},
        // A French digit row.
        {Qt::Key_Ampersand, 10, 49},
        {Qt::Key_Agrave, 19, 48},
        // The places of F and B: Russian, Arabic, Dvorak, Turkish, a key map of the user's own.
        {0x410, 41, 70},
        {0xfefb, 56, 66},
        {Qt::Key_U, 41, 85},
        {Qt::Key_F, 29, 70},
        {Qt::Key_Ccedilla, 56, 0},
        {Qt::Key_Semicolon, 41, 0},
        {Qt::Key_Shift, 41, 0},
    };
    for (const Row& row : rows) {
        const QKeyEvent event(QEvent::KeyPress, row.qtKey, Qt::NoModifier, row.scanCode, 0, 0);
        EXPECT_EQ(virtualKey(event), row.number) << row.qtKey << " at " << row.scanCode;
    }
}

TEST(KeyNumbers, ShiftStatesAddUp) {
    const QKeyEvent all(QEvent::KeyPress, Qt::Key_F22,
                        Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier |
                            Qt::KeypadModifier);
    EXPECT_EQ(shiftState(all), key::Shift + key::Control + key::Alt);
}

} // namespace
} // namespace velmora
