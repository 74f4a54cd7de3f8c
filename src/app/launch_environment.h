#pragma once

#include <QByteArray>
#include <QSize>

#include <memory>
#include <vector>

class QTemporaryFile;

namespace velmora {

/// What has to be said to Qt before the application object exists, through the environment.
/// Made by main() before the application object, and destroyed after that has been constructed:
/// what only Qt's start should see is then put back, so that child processes find the desktop's
/// variables as they were.
class LaunchEnvironment final {
public:
    /// Which windows the run will open.
    enum class Windows {
        /// The editor and the show.
        OnDesktop,
        /// A show nobody watches, where no desktop is at hand.
        IfDesktop,
        /// None: a conversion needs fonts and nothing else.
        None
    };

    /// screen and screens hold where there is no desktop: the size of a screen, and how many.
    explicit LaunchEnvironment(Windows windows, QSize screen = QSize(), int screens = 1);
    ~LaunchEnvironment();

    LaunchEnvironment(const LaunchEnvironment&) = delete;
    LaunchEnvironment& operator=(const LaunchEnvironment&) = delete;

private:
    struct Hidden final {
        const char* name;
        QByteArray value;
    };

    void choosePlatform(Windows windows);
    void setOffscreenScreens(QSize size, int count);
    void hideDesktop();
    static void nameSessionBus();

    std::vector<Hidden> m_hidden;
    std::unique_ptr<QTemporaryFile> m_screenFile;
};

} // namespace velmora
