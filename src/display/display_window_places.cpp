// DisplayWindow: the displays on which its windows stand.
#include "display/display_window.h"

#include "core/arrangement.h"
#include "core/display_rects.h"
#include "core/session.h"
#include "display/place_on_display.h"
#include "display/speaker_window.h"
#include "platform/desktop/monitors.h"
#include "platform/desktop/screens.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace velmora {

/// False where the settings ask for a second display and there is none.
bool DisplayWindow::findDisplays() {
    const bool twoDisplays =
        m_traits.face == Orientation::Plain && m_session.settings.MirrorMode != mirror::OneDisplay;
    if (twoDisplays) {
        GetDisplayRect(m_session, 2);
        if (!displayFound(m_session)) {
            return false;
        }
        const QRect display = displayRect(m_session.displays);
        m_speakerDisplay = {display, display, nameOfScreenAt(display)};
    }
    GetDisplayRect(m_session, 1);
    QRect display = displayRect(m_session.displays);
    if (display.isEmpty()) {
        display = QRect(QPoint(0, 0), m_session.platform.monitors.primarySize());
    }
    m_display = {display, display, nameOfScreenAt(display)};
    return true;
}

/// A display may come first and find its place later. The preparation has pumped: a display may
/// have gone already.
void DisplayWindow::watchDisplays() {
    const auto watch = [this](const QScreen* screen) {
        connect(screen, &QScreen::geometryChanged, this, &DisplayWindow::followDisplays);
        connect(screen, &QScreen::refreshRateChanged, this, &DisplayWindow::followDisplays);
    };
    std::ranges::for_each(QGuiApplication::screens(), watch);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &DisplayWindow::followDisplays);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, watch](const QScreen* screen) {
        if (screen != nullptr) {
            watch(screen);
        }
        followDisplays();
    });
    followDisplays();
}

/// A display that is unplugged ends nothing: a window keeps to a display that is still there and
/// not the other's, or hides until there is one. Both go home as soon as they can: a cable that
/// blinks out must not swap them.
void DisplayWindow::followDisplays() {
    const std::vector<QRect> displays = m_session.platform.monitors.displays();
    if (m_session.displays.CmdDisplaysGiven == 1 || displays.empty()) {
        return;
    }
    const QRect before = m_display.now;
    const std::vector<NamedScreen> screens = namedScreens();
    m_display.follow(screens);
    m_speakerDisplay.follow(screens);
    if (m_speaker) {
        // First, as it is the last to be without a display: the speaker reads. One home for both
        // is where the speaker's display has gone and the operator's has been.
        const bool oneHome = m_speakerDisplay.home == m_display.home;
        m_speakerDisplay.choose(displays, oneHome ? QRect() : m_display.home);
    }
    m_display.choose(displays, m_speakerDisplay.now);
    placeControls();
    if (m_speaker) {
        m_speaker->acceptKeys(m_display.now.isEmpty());
        m_speaker->standOn(m_speakerDisplay.now, m_geometry);
    }
    if (m_display.now != before) {
        takePlace();
    }
    m_presenter->setRefreshRate(refreshRate());
    if (QApplication::activeModalWidget() == nullptr) {
        pictureInCharge().window()->activateWindow();
    }
}

void DisplayWindow::takePlace() {
    if (m_display.now.isEmpty()) {
        hide();
    } else {
        fillDisplay(*this, m_display.now);
    }
    m_pointer->moveTo(pictureInCharge());
    focusPicture();
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        // It has all keys: nobody could answer it on a display that is gone.
        const QRect display = pictureInCharge().window()->geometry();
        dialog->move(display.center() - dialog->rect().center());
    }
}

/// The picture that has the keys and the pointer: the speaker's while the operator has no display.
TextWindow& DisplayWindow::pictureInCharge() const {
    return m_speaker && m_display.now.isEmpty() ? *m_speaker->Picture1 : *Picture1;
}

/// How who has the keys sees the picture, and is to see dialogs.
Orientation DisplayWindow::faceInCharge() const {
    return &pictureInCharge() == Picture1 ? m_traits.face : Orientation::Mirrored;
}

/// The speaker's display counts where there is one: the speaker reads, the operator glances.
double DisplayWindow::refreshRate() const {
    const QRect& reader = m_speakerDisplay.now.isEmpty() ? m_display.now : m_speakerDisplay.now;
    return m_session.platform.monitors.refreshRate(reader);
}

/// The editor beneath is disabled: brought to the front by the desktop it would hide a running show
/// that no key reaches any more.
void DisplayWindow::keepInFront(QWindow* focused) {
    QWidget& window = *pictureInCharge().window();
    if (focused != nullptr && focused != window.windowHandle() &&
        QApplication::activeModalWidget() == nullptr) {
        window.raise();
        window.activateWindow();
    }
}

} // namespace velmora
