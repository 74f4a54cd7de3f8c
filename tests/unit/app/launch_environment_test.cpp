#include "app/launch_environment.h"

#include "platform/desktop/bus_probe.h"

#include "support/scoped_variables.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace velmora {
namespace {

using Windows = LaunchEnvironment::Windows;
TEST(LaunchEnvironment, ChoosesThePlatformByWhatIsAtHandAndNeverAgainstTheUser) {
    struct Row final {
        const char* what;
        Windows windows;
        const char* chosen;
        const char* display;
        const char* wayland;
        const char* platform;
    };
    const Row rows[] = {
        {"X11 desktop: Qt's own choice", Windows::OnDesktop, "", ":0", "", ""},
        {"Wayland with an X server: X11", Windows::OnDesktop, "", ":0", "wayland-0", "xcb"},
        {"Wayland alone: Qt's own choice", Windows::OnDesktop, "", "", "wayland-0", ""},
        {"the user's choice stands", Windows::OnDesktop, "wayland", ":0", "wayland-0", "wayland"},
        {"a conversion needs no desktop", Windows::None, "", ":0", "", "offscreen:configfile="},
        {"a rehearsal on a desktop", Windows::IfDesktop, "", ":0", "", ""},
        {"a rehearsal without one", Windows::IfDesktop, "", "", "", "offscreen:configfile="},
    };
    for (const Row& row : rows) {
        const ScopedVariables scope({{"QT_QPA_PLATFORM", QByteArray(row.chosen)},
                                     {"DISPLAY", QByteArray(row.display)},
                                     {"WAYLAND_DISPLAY", QByteArray(row.wayland)}});
        const LaunchEnvironment environment(row.windows);
        const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
        if (QByteArray(row.platform).endsWith('=')) {
            EXPECT_TRUE(platform.startsWith(row.platform)) << row.what << platform.constData();
        } else {
            EXPECT_EQ(platform, QByteArray(row.platform)) << row.what;
        }
    }
}

TEST(LaunchEnvironment, SwitchesQtsScalingOffAndHidesTheDesktopOnlyWhileItLives) {
    const ScopedVariables scope({{"QT_QPA_PLATFORM", QByteArray("offscreen")},
                                 {"QT_ENABLE_HIGHDPI_SCALING", QByteArray("1")},
                                 {"QT_FONT_DPI", QByteArray("192")},
                                 {"QT_SCALE_FACTOR", QByteArray("2")},
                                 {"QT_SCREEN_SCALE_FACTORS", QByteArray("2;2")},
                                 {"XDG_CURRENT_DESKTOP", QByteArray("Any")},
                                 {"DESKTOP_SESSION", std::nullopt}});
    {
        const LaunchEnvironment environment(Windows::OnDesktop);
        EXPECT_EQ(qgetenv("QT_ENABLE_HIGHDPI_SCALING"), "0");
        EXPECT_EQ(qgetenv("QT_FONT_DPI"), "96");
        EXPECT_FALSE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR"));
        EXPECT_FALSE(qEnvironmentVariableIsSet("QT_SCREEN_SCALE_FACTORS"));
        EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_CURRENT_DESKTOP"));
    }
    EXPECT_EQ(qgetenv("XDG_CURRENT_DESKTOP"), "Any");
    EXPECT_FALSE(qEnvironmentVariableIsSet("DESKTOP_SESSION"));
}

TEST(LaunchEnvironment, ASessionBusThatIsDumbOrMissingIsNotAskedByTheToolkit) {
    const QTemporaryDir folder;
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    qstrncpy(place.sun_path, qPrintable(folder.filePath(u"bus"_qs)), sizeof place.sun_path);
    const int dumb = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(dumb, reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
    ASSERT_EQ(::listen(dumb, 5), 0);
    const QByteArray taken = QByteArray("unix:path=") + place.sun_path;
    for (const std::optional<QByteArray>& address :
         {std::optional(taken), std::optional(QByteArray("unix:path=/nowhere")),
          std::optional<QByteArray>()}) {
        const ScopedVariables scope({{"QT_QPA_PLATFORM", QByteArray("offscreen")},
                                     {"XDG_RUNTIME_DIR", folder.path().toUtf8()},
                                     {"VELMORA_SESSION_BUS_ADDRESS", std::nullopt},
                                     {"DBUS_SESSION_BUS_ADDRESS", address}});
        const LaunchEnvironment environment(Windows::OnDesktop);
        EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "unix:path=/dev/null");
        EXPECT_EQ(sessionBusAddress(), QString::fromUtf8(address.value_or(taken)))
            << "it may answer later";
    }
    ::close(dumb);
}

} // namespace
} // namespace velmora
