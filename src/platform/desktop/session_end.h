#pragma once

#include <QSocketNotifier>

#include <array>
#include <functional>
#include <optional>

namespace velmora {

/// A terminal or another program that no longer listens to what this one prints does not end it.
void outliveBrokenPipes();

/// The end of the session as the desktop imposes it. On SIGTERM, SIGHUP or SIGINT an action runs in
/// the event loop, in a show too, and then the process ends as it would have without it. When the
/// connection to the screen breaks, the toolkit calls exit(): the action runs from there. It runs
/// once. One object at a time; needs the application object.
class SessionEnd final {
public:
    /// lastAction must neither ask nor wait: the desktop soon ends the process by force.
    explicit SessionEnd(std::function<void()> lastAction);
    ~SessionEnd();
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;

    /// exit() was called somewhere while the object lives.
    void processExits();

private:
    void arrived();
    void act();

    std::function<void()> m_lastAction;
    /// The handler's end and the event loop's end of a connection.
    std::array<int, 2> m_ends = {-1, -1};
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace velmora
