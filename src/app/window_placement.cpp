#include "app/window_placement.h"

#include "platform/desktop/screens.h"

#include <QRect>
#include <QStyle>
#include <QWidget>

namespace velmora {

void placeWindow(QWidget& window, const QRect& display) {
    if (display.isEmpty()) {
        return;
    }
    // On a screen the window manager knows how much room panels leave.
    if (screenAt(display) != nullptr) {
        window.setGeometry(display);
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
        return;
    }
    // Display rectangles from the command line need not be a screen. The frame comes on top of the
    // window and belongs inside too, or its title would lie beyond the edge.
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    window.move(display.topLeft());
    window.resize(display.width(), display.height() - title);
}

} // namespace velmora
