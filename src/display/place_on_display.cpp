#include "display/place_on_display.h"

#include "platform/desktop/screens.h"

#include <QScreen>
#include <QWidget>

namespace velmora {

void fillDisplay(QWidget& window, const QRect& display) {
    window.setGeometry(display);
    if (QScreen* screen = screenAt(display)) {
        window.setScreen(screen);
        window.setGeometry(display);
        // Not showFullScreen, which activates: the speaker's window must never take the keys.
        window.setWindowState(Qt::WindowFullScreen);
        window.show();
    } else {
        window.setWindowFlag(Qt::WindowStaysOnTopHint);
        window.show();
    }
    window.raise();
}

} // namespace velmora
