#pragma once

#include "platform/desktop/monitors.h"

#include <QString>

class QScreen;

namespace velmora {

/// The displays as Qt tells them; needs a QGuiApplication. Displays that show the same rectangle
/// (a mirrored desktop) count as one.
class Screens final : public Monitors {
public:
    [[nodiscard]] std::vector<QRect> displays() const override;
    [[nodiscard]] QRect workArea(const QRect& display) const override;
    [[nodiscard]] QRect primary() const override;
    [[nodiscard]] QSize primarySize() const override;
    [[nodiscard]] int colorDepth() const override;
    [[nodiscard]] double refreshRate(const QRect& display) const override;
};

/// The screen that a rectangle in real pixels is exactly; null where none is. Only on one can a
/// window be maximised or fill the screen and stand in that rectangle. Needs a QGuiApplication.
[[nodiscard]] QScreen* screenAt(const QRect& geometry);

/// The name of the screen at a place, as the system tells it, and the place of a screen of that
/// name, in real pixels. Empty where there is none.
[[nodiscard]] QString nameOfScreenAt(const QRect& geometry);
[[nodiscard]] QRect placeOfScreen(const QString& name);

/// Puts displays in the order of reading: by rows of 480 pixels from the desktop's top, within a
/// row from the left. A display that hangs a little lower than its neighbour stays in its row.
/// Equal rectangles are kept once.
[[nodiscard]] std::vector<QRect> inReadingOrder(std::vector<QRect> displays);

} // namespace velmora
