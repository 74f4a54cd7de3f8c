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
    /// The period, in counter ticks, that a step shall have so that a whole number of steps falls
    /// into a refresh of the screen (or of refreshes into a step). The period itself where that
    /// would change it by more than a hundredth.
    [[nodiscard]] virtual std::int64_t lockedPeriod(std::int64_t periodTicks) const = 0;
    /// Paints at once: after a jump.
    virtual void presentNow() = 0;
    /// Paints if the picture of the last step is not on the screen yet: when the motion stops.
    virtual void settle() = 0;
};

} // namespace velmora
