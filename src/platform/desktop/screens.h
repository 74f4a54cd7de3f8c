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

/// A screen as the system names it, with its place in real pixels. Two monitors of one make may
/// have one name.
struct NamedScreen final {
    QString name;
    QRect place;
};
[[nodiscard]] std::vector<NamedScreen> namedScreens();

/// The name of the screen at a place; empty where there is none.
[[nodiscard]] QString nameOfScreenAt(const QRect& geometry);

/// Puts displays in the order of reading: by rows of 480 pixels from the desktop's top, within a
/// row from the left. A display that hangs a little lower than its neighbour stays in its row.
/// Equal rectangles are kept once.
[[nodiscard]] std::vector<QRect> inReadingOrder(std::vector<QRect> displays);

} // namespace velmora
