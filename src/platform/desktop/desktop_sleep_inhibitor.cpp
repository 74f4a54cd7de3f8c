#include "platform/desktop/desktop_sleep_inhibitor.h"

#include "platform/desktop/x_screen_saver.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QFileInfo>
#include <QThread>

namespace velmora {

namespace {

/// A service that does not answer is given up.
constexpr int AnswerTimeoutMs = 2000;
/// At the end of the program a bus that hangs is not waited for any longer than this.
constexpr unsigned long LeaveTimeoutMs = 500;

const QString program = QStringLiteral("Velmora");

/// Whether there is a bus to connect to. Asking for one where there is none would start it.
bool sessionBusAtHand() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusMessage call(const QDBusConnection& bus, const QString& service, const QString& path,
                  const QString& interface, const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return bus.call(message, QDBus::Block, AnswerTimeoutMs);
}

/// The desktop's screen saver service on the session bus.
class ScreenSaverService final {
public:
    void inhibit(const QString& reason) {
        if (!sessionBusAtHand()) {
            return;
        }
        // A connection of its own: closing it drops what it asked for, whatever went wrong.
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, Connection);
        const QDBusMessage answer =
            call(bus, Service, Path, Service, QStringLiteral("Inhibit"), {program, reason});
        if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
            m_cookie = answer.arguments().constFirst();
        }
    }
    void release() {
        if (m_cookie.isValid()) {
            call(QDBusConnection(Connection), Service, Path, Service, QStringLiteral("UnInhibit"),
                 {m_cookie});
            m_cookie.clear();
        }
        QDBusConnection::disconnectFromBus(Connection);
    }

private:
    const QString Connection = QStringLiteral("velmora-show-session");
    const QString Service = QStringLiteral("org.freedesktop.ScreenSaver");
    const QString Path = QStringLiteral("/org/freedesktop/ScreenSaver");
    QVariant m_cookie;
};

/// The login manager on the system bus: what it answers is a lock that lasts while it is open.
class LoginManager final {
public:
    void inhibit(const QString& reason) {
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SystemBus, Connection);
        // A user who may not forbid sleep may still tell that the machine is not idle.
        for (const char* what : {"sleep:idle", "idle"}) {
            const QDBusMessage answer =
                call(bus, QStringLiteral("org.freedesktop.login1"),
                     QStringLiteral("/org/freedesktop/login1"),
                     QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"),
                     {QString::fromLatin1(what), program, reason, QStringLiteral("block")});
            if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
                m_lock = qvariant_cast<QDBusUnixFileDescriptor>(answer.arguments().constFirst());
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
        m_thread->quit();
        if (m_thread->wait(LeaveTimeoutMs)) {
            delete m_services;
            delete m_thread;
        }
        // Else it hangs in the bus, and stays behind until the process has ended.
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
    void waitForAnswers() {
        QMetaObject::invokeMethod(
            m_services, [] {}, Qt::BlockingQueuedConnection);
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

void DesktopSleepInhibitor::waitForAnswers() {
    if (m_bus != nullptr) {
        m_bus->waitForAnswers();
    }
}

} // namespace velmora
