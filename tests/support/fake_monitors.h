#pragma once

#include "platform/desktop/monitors.h"

#include <QSize>

namespace velmora {

/// Displays as a test sets them: one of 1920 by 1080 at first.
class FakeMonitors final : public Monitors {
public:
    [[nodiscard]] std::vector<QRect> displays() const override { return rectangles; }
    [[nodiscard]] QRect workArea(const QRect& display) const override {
        return display.adjusted(0, panelHeight, 0, 0);
    }
    [[nodiscard]] QRect primary() const override {
        return rectangles.empty() ? QRect() : rectangles.at(primaryIndex);
    }
    [[nodiscard]] QSize primarySize() const override {
        return rectangles.empty() ? QSize(640, 480) : primary().size();
    }
    [[nodiscard]] int colorDepth() const override { return depth; }
    [[nodiscard]] double refreshRate(const QRect&) const override { return rate; }

    std::vector<QRect> rectangles = {QRect(0, 0, 1920, 1080)};
    std::size_t primaryIndex = 0;
    /// Of a panel along the top of each display.
    int panelHeight = 0;
    int depth = 32;
    double rate = 60;
};

} // namespace velmora
