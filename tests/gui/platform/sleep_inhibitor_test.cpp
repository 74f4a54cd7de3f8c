#include "platform/desktop/desktop_sleep_inhibitor.h"
#include "support/scoped_variables.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QProcess>
#include <QTest>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace velmora {
namespace {

/// The desktop's screen saver service.
class ScreenSaverDouble final : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public:
    QStringList holders;

public Q_SLOTS:
    uint Inhibit(const QString& program, const QString& reason) {
        EXPECT_EQ(program, u"Velmora"_qs);
        EXPECT_FALSE(reason.isEmpty());
        holders += message().service();
        return 4711;
    }
    void UnInhibit(uint cookie) {
        EXPECT_EQ(cookie, 4711U);
        holders.removeAll(message().service());
    }
};

/// The login manager: a lock is a pipe, given up when its other end is closed.
class LoginManagerDouble final : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    ~LoginManagerDouble() override { ::close(m_readEnd); }
    [[nodiscard]] bool held() const {
        pollfd state{m_readEnd, POLLIN, 0};
        return m_readEnd >= 0 && ::poll(&state, 1, 0) == 0;
    }
    bool forbidsSleepLocks = false;

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString&, const QString&,
                                    const QString& mode) {
        EXPECT_EQ(mode, u"block"_qs);
        if (forbidsSleepLocks && what.contains(u"sleep"_qs)) {
            sendErrorReply(QDBusError::AccessDenied);
            return {};
        }
        int ends[2];
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        ::close(m_readEnd);
        m_readEnd = ends[0];
        QDBusUnixFileDescriptor lock;
        lock.giveFileDescriptor(ends[1]);
        return lock;
    }

private:
    int m_readEnd = -1;
};

Variables busesAt(const QByteArray& address) {
    return {{"DBUS_SESSION_BUS_ADDRESS", address}, {"DBUS_SYSTEM_BUS_ADDRESS", address}};
}

/// A bus of the test's own, which stands in for both of the desktop's.
class TestBus final {
public:
    TestBus() {
        m_daemon.start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
        m_daemon.waitForReadyRead(5000);
        const QByteArray address = m_daemon.readLine().trimmed();
        m_variables.emplace(busesAt(address));
        bus = QDBusConnection::connectToBus(QString::fromUtf8(address), Name);
    }
    ~TestBus() {
        QDBusConnection::disconnectFromBus(Name);
        m_daemon.terminate();
        m_daemon.waitForFinished(5000);
    }
    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;

    QDBusConnection bus{QString()};

private:
    const QString Name = u"sleep-inhibitor-test"_qs;
    QProcess m_daemon;
    std::optional<ScopedVariables> m_variables;
};

class SleepInhibitorTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_bus.bus.isConnected()) << "dbus-daemon is needed";
        const auto slots = QDBusConnection::ExportAllSlots;
        ASSERT_TRUE(
            m_bus.bus.registerObject(u"/org/freedesktop/ScreenSaver"_qs, &screenSaver, slots));
        ASSERT_TRUE(m_bus.bus.registerObject(u"/org/freedesktop/login1"_qs, &loginManager, slots));
        ASSERT_TRUE(m_bus.bus.registerService(u"org.freedesktop.ScreenSaver"_qs));
        ASSERT_TRUE(m_bus.bus.registerService(u"org.freedesktop.login1"_qs));
    }
    [[nodiscard]] bool comesToHold(int holders) {
        return QTest::qWaitFor(
            [&] {
                return screenSaver.holders.size() == holders &&
                       loginManager.held() == (holders > 0);
            },
            5000);
    }

private:
    TestBus m_bus;

protected:
    ScreenSaverDouble screenSaver;
    LoginManagerDouble loginManager;
};

TEST_F(SleepInhibitorTest, HoldsOnceAndLetsGo) {
    {
        DesktopSleepInhibitor inhibitor;
        inhibitor.release();
        inhibitor.inhibit(u"A show is running"_qs);
        inhibitor.inhibit(u"A show is running"_qs);
        EXPECT_TRUE(comesToHold(1));
        inhibitor.release();
        EXPECT_TRUE(comesToHold(0));
        inhibitor.inhibit(u"Another show"_qs);
        EXPECT_TRUE(comesToHold(1));
    }
    EXPECT_TRUE(comesToHold(0)) << "it goes in mid-show";
}

TEST_F(SleepInhibitorTest, AUserWhoMayNotForbidSleepStillCountsAsBusy) {
    // It answers on this thread: an inhibitor that waited for it here would miss both answers.
    loginManager.forbidsSleepLocks = true;
    DesktopSleepInhibitor inhibitor;
    inhibitor.inhibit(u"A show is running"_qs);
    EXPECT_TRUE(comesToHold(1));
}

TEST(SleepInhibitor, TheEndDoesNotWaitForABusThatIsMissingOrDumb) {
    // A socket that takes connections and never says a word. It tells when it goes.
    QProcess dumb;
    const QString socket = u"velmora-dumb-bus-%1"_qs.arg(::getpid());
    dumb.start(u"python3"_qs, {u"-c"_qs,
                               u"import socket, sys, time; s = socket.socket(socket.AF_UNIX)\n"
                               "s.bind('\\0' + sys.argv[1]); s.listen()\n"
                               "print('ready', flush=True); time.sleep(60); print('gone')"_qs,
                               socket});
    ASSERT_TRUE(dumb.waitForReadyRead(5000));
    const QByteArray addresses[] = {"", "unix:path=/nowhere/bus",
                                    "unix:abstract=" + socket.toUtf8()};
    for (const QByteArray& address : addresses) {
        const ScopedVariables scope(busesAt(address));
        {
            DesktopSleepInhibitor inhibitor;
            inhibitor.inhibit(u"A show is running"_qs);
            inhibitor.release();
        }
        dumb.waitForReadyRead(0);
        EXPECT_FALSE(dumb.readAll().contains("gone")) << address.constData() << " was waited for";
    }
    dumb.kill();
    dumb.waitForFinished(5000);
}

} // namespace
} // namespace velmora

#include "sleep_inhibitor_test.moc"
