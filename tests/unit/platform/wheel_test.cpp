#include "platform/devices/wheel.h"

#include <gtest/gtest.h>

#include <QWheelEvent>

namespace velmora {
namespace {

TEST(Wheel, TellsItsTurnAndWhetherAModifierIsHeld) {
    struct Row final {
        QPoint angle;
        Qt::KeyboardModifiers held;
        double delta;
        bool modifierHeld;
    };
    const Row rows[] = {
        {{0, 120}, Qt::NoModifier, 120, false},     {{0, -15}, Qt::ShiftModifier, -15, true},
        {{120, 0}, Qt::AltModifier, 120, true},     {{120, 0}, Qt::NoModifier, 0, false},
        {{0, 120}, Qt::KeypadModifier, 120, false},
    };
    for (const Row& row : rows) {
        const QWheelEvent event(QPointF(), QPointF(), QPoint(), row.angle, Qt::NoButton, row.held,
                                Qt::NoScrollPhase, false);
        EXPECT_EQ(wheelTurn(event).delta, row.delta);
        EXPECT_EQ(wheelTurn(event).modifierHeld, row.modifierHeld);
    }
}

} // namespace
} // namespace velmora
