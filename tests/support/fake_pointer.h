#pragma once

#include "platform/devices/pointer.h"

namespace velmora {

/// A pointer that a test can look at.
class FakePointer final : public Pointer {
public:
    void confine(QWidget& area) override { confinedTo = &area; }
    void hide(QWidget& area) override { hiddenOver = &area; }
    void release() override {
        confinedTo = nullptr;
        hiddenOver = nullptr;
    }
    [[nodiscard]] bool moveTo(QPoint to) override {
        if (canMove) {
            place = to;
        }
        return canMove;
    }

    const QWidget* confinedTo = nullptr;
    const QWidget* hiddenOver = nullptr;
    QPoint place;
    bool canMove = true;
};

} // namespace velmora
