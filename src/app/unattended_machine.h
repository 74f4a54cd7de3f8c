#pragma once

#include "platform/desktop/appearance_service.h"
#include "platform/desktop/screens.h"
#include "platform/desktop/unattended_services.h"
#include "platform/devices/pointer_widgets.h"
#include "platform/devices/sdl_joystick.h"
#include "platform/platform.h"
#include "platform/timing/machine_clock.h"
#include "platform/timing/qt_event_pump.h"

namespace velmora {

/// The machine's own services, with nobody there to answer a box or a dialog: what the unattended
/// commands and the benchmarks run on. Needs the application object.
struct UnattendedMachine final {
    MachineClock clock;
    QtEventPump pump;
    TerminalMessageBoxes messages;
    NoFileDialogs dialogs;
    Screens monitors;
    SdlJoystick joystick;
    WidgetPointer pointer;
    NoSleepInhibitor sleepInhibitor;
    NoAppearanceService effects;
    Platform platform{clock,    pump,    messages,       dialogs, monitors,
                      joystick, pointer, sleepInhibitor, effects};
};

} // namespace velmora
