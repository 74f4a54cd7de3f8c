#include "platform/desktop/bus_probe.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace velmora {

namespace {

/// Where the address stands while the toolkit may not see it.
constexpr const char* HiddenAddress = "VELMORA_SESSION_BUS_ADDRESS";
/// An address at which the bus library looks in vain, at once.
constexpr const char* NoBus = "unix:path=/dev/null";

/// A socket that is closed with its owner.
class Socket final {
public:
    Socket() : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {}
    ~Socket() { ::close(m_descriptor); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// The value of a key in an address, percent signs undone; empty where there is none.
QByteArray addressValue(const QString& address, QStringView key) {
    if (!address.startsWith(u"unix:")) {
        return QByteArray();
    }
    const QString first = address.mid(5).section(u';', 0, 0);
    for (const QString& part : first.split(u',')) {
        if (part.section(u'=', 0, 0) == key) {
            return QByteArray::fromPercentEncoding(part.section(u'=', 1).toUtf8());
        }
    }
    return QByteArray();
}

bool connectTo(const Socket& socket, const QByteArray& name, bool isAbstract) {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    const auto from = static_cast<std::size_t>(isAbstract ? 1 : 0);
    const auto length = static_cast<std::size_t>(name.size());
    if (name.isEmpty() || from + length >= sizeof place.sun_path) {
        return false;
    }
    std::memcpy(place.sun_path + from, name.constData(), length);
    const std::size_t used = offsetof(sockaddr_un, sun_path) + from + length + (isAbstract ? 0 : 1);
    return ::connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&place),
                     static_cast<socklen_t>(used)) == 0;
}

} // namespace

QString sessionBusAddress() {
    if (qEnvironmentVariableIsSet(HiddenAddress)) {
        return qEnvironmentVariable(HiddenAddress);
    }
    return qEnvironmentVariable(
        "DBUS_SESSION_BUS_ADDRESS",
        QStringLiteral("unix:path=%1/bus").arg(qEnvironmentVariable("XDG_RUNTIME_DIR")));
}

bool busAnswers(const QString& address, int timeoutMs) {
    const Socket socket;
    const QByteArray path = addressValue(address, u"path");
    const bool isAbstract = path.isEmpty();
    if (!connectTo(socket, isAbstract ? addressValue(address, u"abstract") : path, isAbstract)) {
        return false;
    }
    // The greeting of the protocol: a zero byte with the client's credentials, and a question that
    // every server answers, with the ways to prove who one is.
    const QByteArray greeting = QByteArrayLiteral("\0AUTH\r\n");
    if (::send(socket.descriptor(), greeting.constData(), static_cast<std::size_t>(greeting.size()),
               MSG_NOSIGNAL) != greeting.size()) {
        return false;
    }
    pollfd answer{socket.descriptor(), POLLIN, 0};
    char first = 0;
    return ::poll(&answer, 1, timeoutMs) > 0 && ::read(socket.descriptor(), &first, 1) == 1;
}

void hideSessionBus() {
    const QByteArray address = sessionBusAddress().toUtf8();
    qputenv(HiddenAddress, address);
    qputenv("DBUS_SESSION_BUS_ADDRESS", NoBus);
}

} // namespace velmora
