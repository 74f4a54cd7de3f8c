#include "display/place_on_display.h"

#include "platform/desktop/screens.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace velmora {

void DisplayPlace::follow(const std::vector<NamedScreen>& screens) {
    const auto isIt = [this](const NamedScreen& screen) { return screen.name == name; };
    if (!name.isEmpty() && std::ranges::count_if(screens, isIt) == 1) {
        home = std::ranges::find_if(screens, isIt)->place;
    }
}

void DisplayPlace::choose(const std::vector<QRect>& displays, const QRect& taken) {
    const auto isFree = [&](const QRect& display) { return display != taken; };
    const auto isThere = [&](const QRect& display) {
        return isFree(display) && std::ranges::find(displays, display) != displays.end();
    };
    if (isThere(home)) {
        now = home;
    } else if (!isThere(now)) {
        const auto other = std::ranges::find_if(displays, isFree);
        now = other == displays.end() ? QRect() : *other;
    }
}

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
