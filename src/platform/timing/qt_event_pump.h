#pragma once

#include "platform/timing/event_pump.h"

namespace velmora {

/// The application's event queue.
class QtEventPump final : public EventPump {
public:
    void DoEvents() override;
    void waitForEvents(int timeoutMs) override;
};

} // namespace velmora
