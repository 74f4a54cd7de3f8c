#pragma once

#include <QPoint>

class QWidget;

namespace velmora {

/// The pointer of the machine, for a show that a mouse-like device steers.
class Pointer {
public:
    virtual ~Pointer() = default;
    /// Everything that the pointer does goes to the area from now on, and the rest of the desktop
    /// is out of its reach, while the area's window is the active one. A second call moves the
    /// confinement. The area must be visible.
    virtual void confine(QWidget& area) = 0;
    /// The pointer is not seen over the area.
    virtual void hide(QWidget& area) = 0;
    /// Undoes confine and hide.
    virtual void release() = 0;
    /// Puts the pointer to a place of the desktop, in pixels. False where the platform moves it for
    /// nobody: it stays where it is.
    [[nodiscard]] virtual bool moveTo(QPoint place) = 0;
};

} // namespace velmora
