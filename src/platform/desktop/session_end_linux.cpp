#include "platform/desktop/session_end.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace velmora {

namespace {

constexpr std::array Signals = {SIGTERM, SIGHUP, SIGINT};

/// Desktops send two at once, SIGTERM and SIGHUP; the third means that the first was not heard.
constexpr int MostSignals = 2;

std::atomic<int> handlersEnd = -1;
std::atomic<int> signalsSeen = 0;
/// For the end that nobody announces.
std::atomic<SessionEnd*> unannounced = nullptr;

/// A handler may do no more than write: it can fall into any line of the program. A program that
/// hangs must end all the same.
void handleSignal(int signal) {
    const int error = errno;
    const auto byte = static_cast<char>(signal);
    if (++signalsSeen > MostSignals || write(handlersEnd, &byte, 1) != 1) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
    errno = error;
}

} // namespace

void outliveBrokenPipes() {
    std::signal(SIGPIPE, SIG_IGN);
}

SessionEnd::SessionEnd(std::function<void()> lastAction) : m_lastAction(std::move(lastAction)) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, m_ends.data()) != 0) {
        return;
    }
    handlersEnd = m_ends[0];
    static const int registered = std::atexit([] {
        if (SessionEnd* const session = unannounced.exchange(nullptr)) {
            session->processExits();
        }
    });
    static_cast<void>(registered);
    unannounced = this;
    m_notifier.emplace(m_ends[1], QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier,
                     [this] { arrived(); });
    for (const int signal : Signals) {
        // Whoever started the program may have asked it to outlive the terminal.
        if (std::signal(signal, handleSignal) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
}

SessionEnd::~SessionEnd() {
    if (!m_notifier) {
        return;
    }
    for (const int signal : Signals) {
        std::signal(signal, SIG_DFL);
    }
    handlersEnd = -1;
    unannounced = nullptr;
    m_notifier.reset();
    for (const int end : m_ends) {
        close(end);
    }
}

void SessionEnd::arrived() {
    char signal = SIGTERM;
    if (read(m_ends[1], &signal, 1) != 1) {
        return;
    }
    act();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void SessionEnd::processExits() {
    act();
}

void SessionEnd::act() {
    if (const auto action = std::exchange(m_lastAction, nullptr)) {
        action();
    }
}

} // namespace velmora
