#pragma once

namespace velmora {

class Clock;
class EventPump;
class FileDialogs;
class MessageBoxes;
class Monitors;

/// The machine's services, given to whoever needs them. Each has a fake in the tests.
/// Owned by main(); outlives the session.
struct Platform final {
    Clock& clock;
    EventPump& pump;
    MessageBoxes& messages;
    FileDialogs& fileDialogs;
    Monitors& monitors;
};

} // namespace velmora
