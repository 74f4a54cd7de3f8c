#pragma once

#include <cstdint>

namespace velmora {

/// Decides when the picture of a running show goes to the screen.
class Presenter {
public:
    virtual ~Presenter() = default;
    /// A step has been composed; periodTicks is the time from one step to the next, in counter ticks.
    /// Returns whether it painted.
    virtual bool stepDone(std::int64_t periodTicks) = 0;
    /// Paints at once: after a jump, a turn, and whenever the picture stands.
    virtual void presentNow() = 0;
};

} // namespace velmora
