#pragma once

#include <cstdint>

namespace velmora {

/// Decides when the picture of a running show goes to the screen.
class Presenter {
public:
    virtual ~Presenter() = default;
    /// A step has been composed; periodTicks is the time from one step to the next, in counter
    /// ticks. Returns whether it painted.
    virtual bool stepDone(std::int64_t periodTicks) = 0;
    /// Paints at once: after a jump.
    virtual void presentNow() = 0;
    /// Paints if the picture of the last step is not on the screen yet: when the motion stops.
    virtual void settle() = 0;
};

} // namespace velmora
