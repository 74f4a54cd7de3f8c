#pragma once

#include "core/session.h"
#include "platform/platform.h"
#include "support/fake_appearance_service.h"
#include "support/fake_clock.h"
#include "support/fake_editor_host.h"
#include "support/fake_event_pump.h"
#include "support/fake_file_dialogs.h"
#include "support/fake_joystick.h"
#include "support/fake_message_boxes.h"
#include "support/fake_monitors.h"
#include "support/fake_pointer.h"
#include "support/fake_sleep_inhibitor.h"
#include "support/files.h"

#include <QString>
#include <QTemporaryDir>

namespace velmora {

/// A session on fakes, as the start-up leaves it: default settings, an AppFolder of its own that
/// goes away with the object, a single display of 1920 by 1080.
class TestSession final {
public:
    TestSession() {
        session.AppFolder = folder.path() + u"/"_qs;
        session.settings.ScriptsFolder = session.AppFolder + u"Scripts/"_qs;
        session.settings.LastScriptFolder = session.settings.ScriptsFolder;
        session.settings.ScreenFontName = host.fontName;
        session.settings.ArrowPosition = 493;
        session.screen.ScreenPixelsWide = 1920;
        session.screen.ScreenPixelsHigh = 1080;
        session.screen.ScaleX = 3;
        session.screen.ScaleY = 2.375;
    }

    /// Full path of a file of that name in the AppFolder.
    [[nodiscard]] QString path(const QString& name) const { return session.AppFolder + name; }
    /// Writes a file into the AppFolder and gives its full path.
    QString write(const QString& name, const QByteArray& bytes) const {
        return writeBytes(path(name), bytes);
    }
    /// Contents of a file in the AppFolder; null when it does not exist.
    [[nodiscard]] QByteArray read(const QString& name) const { return bytesOf(path(name)); }

    FakeClock clock;
    FakeEventPump pump{clock};
    FakeMessageBoxes messages;
    FakeFileDialogs dialogs;
    FakeMonitors monitors;
    FakeJoystick joystick;
    FakePointer pointer;
    FakeSleepInhibitor sleepInhibitor;
    FakeAppearanceService effects;
    FakeEditorHost host;
    QTemporaryDir folder;
    Platform platform{clock,    pump,    messages,       dialogs, monitors,
                      joystick, pointer, sleepInhibitor, effects};
    Session session{platform};
};

} // namespace velmora
