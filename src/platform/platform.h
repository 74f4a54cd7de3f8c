#pragma once

namespace velmora {

class AppearanceService;
class Clock;
class EventPump;
class FileDialogs;
class Joystick;
class MessageBoxes;
class Monitors;
class Pointer;
class SleepInhibitor;

/// The machine's services, given to whoever needs them. Each has a fake in the tests.
/// Owned by main(); outlives the session.
struct Platform final {
    Clock& clock;
    EventPump& pump;
    MessageBoxes& messages;
    FileDialogs& fileDialogs;
    Monitors& monitors;
    Joystick& joystick;
    Pointer& pointer;
    SleepInhibitor& sleepInhibitor;
    AppearanceService& effects;
};

} // namespace velmora
