#include "platform/desktop/session_end.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace velmora {

namespace {

constexpr std::array Signals = {SIGTERM, SIGHUP, SIGINT};

std::atomic<int> handlersEnd = -1;
std::atomic<bool> signalled = false;

/// A handler may do no more than write: it can fall into any line of the program. A second signal
/// means that the first was not heard: a program that hangs must end all the same.
void handleSignal(int signal) {
    const int error = errno;
    const auto byte = static_cast<char>(signal);
    if (signalled.exchange(true) || write(handlersEnd, &byte, 1) != 1) {
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
    m_lastAction();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace velmora
