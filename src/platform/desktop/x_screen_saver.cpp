#include "platform/desktop/x_screen_saver.h"

#include <QGuiApplication>

// X11's headers come last: they define common words as macros.
#include <X11/Xlib.h>
#include <X11/extensions/scrnsaver.h>

namespace velmora {

namespace {

/// The screen saver can be suspended since version 1.1 of the extension.
bool canSuspend(Display* display) {
    int firstEvent = 0;
    int firstError = 0;
    int major = 0;
    int minor = 0;
    return XScreenSaverQueryExtension(display, &firstEvent, &firstError) != 0 &&
           XScreenSaverQueryVersion(display, &major, &minor) != 0 &&
           (major > 1 || (major == 1 && minor >= 1));
}

} // namespace

void suspendXScreenSaver(bool suspend) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->display() == nullptr || !canSuspend(x11->display())) {
        return;
    }
    XScreenSaverSuspend(x11->display(), suspend ? 1 : 0);
    XFlush(x11->display());
}

} // namespace velmora
