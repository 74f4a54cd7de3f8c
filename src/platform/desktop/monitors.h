#pragma once

#include <QRect>

#include <vector>

namespace velmora {

/// The displays of the desktop.
class Monitors {
public:
    virtual ~Monitors() = default;
    /// Rectangles in real pixels, the display at the desktop's top left first, then by left and
    /// top.
    [[nodiscard]] virtual std::vector<QRect> displays() const = 0;
    /// Part of a display that the desktop's panels leave free, told by the display's rectangle; all
    /// of it where no screen is exactly there.
    [[nodiscard]] virtual QRect workArea(const QRect& display) const = 0;
    /// Rectangle of the primary screen; empty where there is none.
    [[nodiscard]] virtual QRect primary() const = 0;
    /// Size of the primary screen in real pixels; 640 by 480 where there is none.
    [[nodiscard]] virtual QSize primarySize() const = 0;
    /// Bits a pixel of the primary screen.
    [[nodiscard]] virtual int colorDepth() const = 0;
    /// Refreshes a second of a display, told by its rectangle; of the primary screen where no
    /// screen is exactly there, and 60 where the system tells none.
    [[nodiscard]] virtual double refreshRate(const QRect& display) const = 0;
};

} // namespace velmora
