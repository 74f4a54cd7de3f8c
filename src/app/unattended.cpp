#include "app/unattended.h"

#include "app/launch_environment.h"
#include "app/look.h"
#include "app/unattended_machine.h"
#include "core/app_folder.h"
#include "core/arrangement.h"
#include "core/command_line.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "core/settings_file.h"
#include "display/rehearsal.h"
#include "editor/convert.h"

#include <QApplication>
#include <QStandardPaths>

#include <memory>

namespace velmora {

namespace {

/// A session on default settings with nobody behind it. Needs the application object.
class UnattendedSession final {
public:
    UnattendedSession() {
        // Nothing is created: the folder only tells the default for scripts.
        session.AppFolder =
            appFolderFor(QCoreApplication::applicationDirPath(),
                         QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
        session.keepsFiles = false;
        measureScreen(session);
        session.settings = defaultSettings(session.AppFolder, session.screen.ScreenPixelsHigh);
    }

private:
    UnattendedMachine m_machine;

public:
    Session session{m_machine.platform};
};

} // namespace

int runConversion(const CommandLine& line, char** argv) {
    auto environment = std::make_unique<LaunchEnvironment>(LaunchEnvironment::Windows::None);
    int argumentCount = 1;
    const QGuiApplication application(argumentCount, argv);
    environment.reset();
    UnattendedSession unattended;
    return convertScript(unattended.session, line.convertFrom, line.convertTo);
}

int runUnwatchedShow(const CommandLine& line, char** argv) {
    const RehearsalArguments& arguments = line.rehearsal;
    const int screens = arguments.mirror == mirror::TwoDisplays ? 2 : 1;
    auto environment = std::make_unique<LaunchEnvironment>(
        LaunchEnvironment::Windows::IfDesktop, arguments.screen.value_or(QSize()), screens);
    int argumentCount = 1;
    QApplication application(argumentCount, argv);
    environment.reset();
    QApplication::setQuitOnLastWindowClosed(false);
    UnattendedSession unattended;
    applyLook(application, unattended.session.screen);
    applyRehearsal(arguments, unattended.session);
    return runRehearsal(unattended.session, arguments);
}

} // namespace velmora
