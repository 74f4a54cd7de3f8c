#include "app/application.h"

#include "app/launch_environment.h"
#include "app/look.h"
#include "app/main_window.h"
#include "app/unattended.h"
#include "core/app_folder.h"
#include "core/command_line.h"
#include "core/program_name.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "platform/desktop/appearance_service.h"
#include "platform/desktop/desktop_sleep_inhibitor.h"
#include "platform/desktop/file_dialogs_widgets.h"
#include "platform/desktop/message_boxes_widgets.h"
#include "platform/desktop/screens.h"
#include "platform/desktop/session_end.h"
#include "platform/desktop/single_instance.h"
#include "platform/devices/pointer_widgets.h"
#include "platform/devices/sdl_joystick.h"
#include "platform/platform.h"
#include "platform/timing/machine_clock.h"
#include "platform/timing/qt_event_pump.h"

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <memory>

namespace velmora {

namespace {

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments += QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

int refuse(const CommandLine& line) {
    std::fprintf(stderr, "%s\n\n%s", qPrintable(line.problem), qPrintable(usageText()));
    return UsageExitStatus;
}

/// The services of a run at the desktop. Needs the application object.
struct DesktopServices final {
    MachineClock clock;
    QtEventPump pump;
    WidgetMessageBoxes messages;
    WidgetFileDialogs fileDialogs{messages};
    Screens monitors;
    SdlJoystick joystick;
    WidgetPointer pointer;
    DesktopSleepInhibitor sleepInhibitor;
    NoAppearanceService effects;
    Platform platform{clock,    pump,    messages,       fileDialogs, monitors,
                      joystick, pointer, sleepInhibitor, effects};
};

/// It may be another user's, or cut short by a full disk: to start all the same could mean two
/// programs that write the same settings.
int complainOfLock(MessageBoxes& messages, const QString& lockFile) {
    const QString text =
        QStringLiteral("I cannot tell whether Velmora is running already: the lock file %1 cannot "
                       "be read.\r\n\r\nIf it is not running, remove that file and start again.")
            .arg(lockFile);
    std::fprintf(stderr, "velmora: %s\n", qPrintable(text.simplified()));
    messages.show(MessageIcon::Critical, QStringLiteral("Could Not Start"), text,
                  MessageButtons::Ok);
    return 1;
}

int runEditor(const CommandLine& line, char** argv) {
    const SingleInstance instance;
    if (instance.found() == SingleInstance::Found::Another) {
        return 0;
    }
    auto environment = std::make_unique<LaunchEnvironment>(LaunchEnvironment::Windows::OnDesktop);
    // Qt sees the program's name alone: the arguments are the program's own.
    int argumentCount = 1;
    QApplication application(argumentCount, argv);
    environment.reset();
    // Form1's unload decides when the program ends, not the closing of whatever window is last.
    QApplication::setQuitOnLastWindowClosed(false);

    DesktopServices services;
    if (instance.found() == SingleInstance::Found::Riddle) {
        return complainOfLock(services.messages, instance.lockFile());
    }
    Session session(services.platform);
    if (line.displays) {
        applyDisplayRectangles(*line.displays, session.displays);
    }
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    session.AppFolder = findAppFolder();
    measureScreen(session);
    applyLook(application, session.screen);

    Form1 form(session);
    const SessionEnd sessionEnd([&form] { form.sessionEnds(); });
    QObject::connect(&form, &Form1::unloaded, &application, &QCoreApplication::quit);
    // From inside the event loop, so that leaving works from the first moment on.
    QMetaObject::invokeMethod(
        &form,
        [&form, &line] {
            form.Form_Load();
            if (!line.script.isEmpty()) {
                form.openScript(line.script);
            }
        },
        Qt::QueuedConnection);
    return QCoreApplication::exec();
}

} // namespace

int runApplication(int argc, char** argv) {
    outliveBrokenPipes();
    const CommandLine line = parseCommandLine(argumentsOf(argc, argv), QDir::currentPath());
    switch (line.action) {
    case CommandLine::Action::ShowHelp:
        std::fputs(qPrintable(usageText()), stdout);
        return 0;
    case CommandLine::Action::ShowVersion:
        std::puts(qPrintable(programName()));
        return 0;
    case CommandLine::Action::Refuse:
        return refuse(line);
    case CommandLine::Action::Convert:
        return runConversion(line, argv);
    case CommandLine::Action::Rehearse:
        return runUnwatchedShow(line, argv);
    case CommandLine::Action::OpenEditor:
        break;
    }
    return runEditor(line, argv);
}

} // namespace velmora
