#include "platform/desktop/desktop_sleep_inhibitor.h"

#include "platform/desktop/bus_probe.h"
#include "platform/desktop/x_screen_saver.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QThread>

namespace velmora {

namespace {

/// A bus or a service that does not answer is given up. The end of the program waits for no longer
/// than what is under way: one probe or call for each of both services.
constexpr int AnswerTimeoutMs = 500;

const QString program = QStringLiteral("Velmora");

QString systemBusAddress() {
    return qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS",
                                QStringLiteral("unix:path=/var/run/dbus/system_bus_socket"));
}

struct Address final {
    QString service;
    QString path;
    QString interface;
};

QDBusMessage message(const Address& to, const QString& method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(to.service, to.path, to.interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

/// The first value of the answer; invalid where there is none.
QVariant ask(const QDBusConnection& bus, const QDBusMessage& call) {
    const QDBusMessage answer = bus.call(call, QDBus::Block, AnswerTimeoutMs);
    const bool answered = answer.type() == QDBusMessage::ReplyMessage;
    return answered ? answer.arguments().value(0) : QVariant();
}

/// The desktop's screen saver service on the session bus.
class ScreenSaverService final {
public:
    void inhibit(const QString& reason) {
        if (!busAnswers(sessionBusAddress(), AnswerTimeoutMs)) {
            return;
        }
        // A connection of its own: closing it drops what it asked for, whatever went wrong.
        const QDBusConnection bus = QDBusConnection::connectToBus(sessionBusAddress(), Connection);
        m_cookie = ask(bus, message(Service, QStringLiteral("Inhibit"), {program, reason}));
    }
    void release() {
        if (m_cookie.isValid()) {
            // Nobody needs the answer.
            QDBusConnection(Connection)
                .send(message(Service, QStringLiteral("UnInhibit"), {m_cookie}));
            m_cookie.clear();
        }
        QDBusConnection::disconnectFromBus(Connection);
    }

private:
    const QString Connection = QStringLiteral("velmora-show-session");
    const Address Service{QStringLiteral("org.freedesktop.ScreenSaver"),
                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                          QStringLiteral("org.freedesktop.ScreenSaver")};
    QVariant m_cookie;
};

/// The login manager on the system bus: what it answers is a lock that lasts while it is open.
class LoginManager final {
public:
    void inhibit(const QString& reason) {
        if (!busAnswers(systemBusAddress(), AnswerTimeoutMs)) {
            return;
        }
        const QDBusConnection bus = QDBusConnection::connectToBus(systemBusAddress(), Connection);
        // A user who may not forbid sleep may still tell that the machine is not idle.
        for (const char* what : {"sleep:idle", "idle"}) {
            const QVariant lock =
                ask(bus,
                    message(Service, QStringLiteral("Inhibit"),
                            {QString::fromLatin1(what), program, reason, QStringLiteral("block")}));
            if (lock.isValid()) {
                m_lock = qvariant_cast<QDBusUnixFileDescriptor>(lock);
                return;
            }
        }
    }
    void release() {
        m_lock = QDBusUnixFileDescriptor();
        QDBusConnection::disconnectFromBus(Connection);
    }

private:
    const QString Connection = QStringLiteral("velmora-show-system");
    const Address Service{QStringLiteral("org.freedesktop.login1"),
                          QStringLiteral("/org/freedesktop/login1"),
                          QStringLiteral("org.freedesktop.login1.Manager")};
    QDBusUnixFileDescriptor m_lock;
};

} // namespace

/// The thread that talks to the bus, and what it holds there.
class DesktopSleepInhibitor::BusThread final {
public:
    BusThread() : m_thread(new QThread), m_services(new Services) {
        m_services->moveToThread(m_thread);
        m_thread->start(QThread::LowPriority);
    }
    ~BusThread() {
        // Behind whatever is still to be done.
        post([thread = m_thread] { thread->quit(); });
        // A thread that stayed behind would meet the bus library being torn down.
        m_thread->wait();
        delete m_services;
        delete m_thread;
    }
    BusThread(const BusThread&) = delete;
    BusThread& operator=(const BusThread&) = delete;

    void inhibit(const QString& reason) {
        post([services = m_services, reason] {
            services->screenSaver.inhibit(reason);
            services->loginManager.inhibit(reason);
        });
    }
    void release() {
        post([services = m_services] {
            services->screenSaver.release();
            services->loginManager.release();
        });
    }

private:
    /// Touched by the thread alone.
    class Services final : public QObject {
    public:
        ScreenSaverService screenSaver;
        LoginManager loginManager;
    };

    template<typename Work> void post(Work work) {
        QMetaObject::invokeMethod(m_services, work, Qt::QueuedConnection);
    }

    QThread* m_thread;
    Services* m_services;
};

DesktopSleepInhibitor::DesktopSleepInhibitor() = default;

DesktopSleepInhibitor::~DesktopSleepInhibitor() {
    DesktopSleepInhibitor::release();
}

void DesktopSleepInhibitor::inhibit(const QString& reason) {
    if (m_inhibited) {
        return;
    }
    m_inhibited = true;
    suspendXScreenSaver(true);
    if (m_bus == nullptr) {
        m_bus = std::make_unique<BusThread>();
    }
    m_bus->inhibit(reason);
}

void DesktopSleepInhibitor::release() {
    if (!m_inhibited) {
        return;
    }
    m_inhibited = false;
    suspendXScreenSaver(false);
    m_bus->release();
}

} // namespace velmora
