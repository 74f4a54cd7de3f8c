#pragma once

namespace velmora {

/// Runs the handlers of pending input inside a loop of the program.
class EventPump {
public:
    virtual ~EventPump() = default;
    /// Runs everything that is pending, handlers included, and comes back.
    virtual void DoEvents() = 0;
    /// Sleeps until something is pending or the time is over, then does as DoEvents.
    virtual void waitForEvents(int timeoutMs) = 0;
};

} // namespace velmora
