#include "app/launch_environment.h"

#include "platform/desktop/bus_probe.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>
#include <QtGlobal>

namespace velmora {

namespace {

constexpr QSize UnwatchedScreen(1920, 1080);

constexpr int BusPatienceMs = 300;

const char* const ScalingVariables[] = {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS",
                                        "QT_USE_PHYSICAL_DPI"};

/// By these Qt finds out the desktop and loads its theme with a second toolkit behind it, which
/// costs a good part of the time to the first window and would restyle the program's own look.
const char* const DesktopVariables[] = {"XDG_CURRENT_DESKTOP", "KDE_FULL_SESSION",
                                        "GNOME_DESKTOP_SESSION_ID", "DESKTOP_SESSION"};

bool isSet(const char* name) {
    return !qEnvironmentVariableIsEmpty(name);
}

} // namespace

LaunchEnvironment::LaunchEnvironment(Windows windows, QSize screen, int screens) {
    // The program scales everything itself and counts in real pixels.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qputenv("QT_FONT_DPI", "96");
    for (const char* name : ScalingVariables) {
        qunsetenv(name);
    }
    choosePlatform(windows);
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen" && windows != Windows::OnDesktop) {
        setOffscreenScreens(screen.isValid() ? screen : UnwatchedScreen, screens);
    }
    hideDesktop();
    if (windows != Windows::None) {
        nameSessionBus();
    }
}

LaunchEnvironment::~LaunchEnvironment() {
    for (const Hidden& variable : m_hidden) {
        qputenv(variable.name, variable.value);
    }
}

void LaunchEnvironment::choosePlatform(Windows windows) {
    if (isSet("QT_QPA_PLATFORM")) {
        return;
    }
    const bool desktopAtHand = isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
    if (windows == Windows::None || (windows == Windows::IfDesktop && !desktopAtHand)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (isSet("WAYLAND_DISPLAY") && isSet("DISPLAY")) {
        // Only under X11 can windows be placed and the pointer be moved.
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
}

/// Screens of one size, side by side.
void LaunchEnvironment::setOffscreenScreens(QSize size, int count) {
    m_screenFile =
        std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/velmora-XXXXXX.json"));
    if (!m_screenFile->open()) {
        return;
    }
    QStringList screens;
    for (int i = 0; i < count; ++i) {
        screens.append(QStringLiteral("{\"name\":\"display%1\",\"x\":%2,\"y\":0,\"width\":%3,"
                                      "\"height\":%4,\"logicalDpi\":96,\"logicalBaseDpi\":96,"
                                      "\"dpr\":1}")
                           .arg(i + 1)
                           .arg(i * size.width())
                           .arg(size.width())
                           .arg(size.height()));
    }
    m_screenFile->write(QStringLiteral("{\"screens\":[%1]}").arg(screens.join(u',')).toUtf8());
    m_screenFile->close();
    qputenv("QT_QPA_PLATFORM",
            "offscreen:configfile=" + QFile::encodeName(m_screenFile->fileName()));
}

/// For the toolkit, which asks the session bus whether there is a screen reader: it would wait for
/// ever for a bus that takes connections and says nothing, and start one where there is none.
void LaunchEnvironment::nameSessionBus() {
    const QString address = sessionBusAddress();
    if (busAnswers(address, BusPatienceMs)) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    } else {
        hideSessionBus();
    }
}

void LaunchEnvironment::hideDesktop() {
    for (const char* name : DesktopVariables) {
        if (qEnvironmentVariableIsSet(name)) {
            m_hidden.push_back({name, qgetenv(name)});
            qunsetenv(name);
        }
    }
}

} // namespace velmora
