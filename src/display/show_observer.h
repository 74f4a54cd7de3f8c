#pragma once

#include <cstdint>

class QWidget;

namespace velmora {

struct ShowTables;
struct DisplayGeometry;

/// What a step of the scroll loop came to, in ticks of the clock's counter.
struct StepRecord final {
    /// Composition of the frame, from the stamp before it.
    std::int64_t composeTicks = 0;
    /// End of the step's wait less its due moment.
    std::int64_t lateTicks = 0;
    /// The step's picture was painted.
    bool painted = false;
};

/// Watches a show from within: the rehearsal's measurements. Every function may write the show's
/// variables, ExitRequested above all.
class ShowObserver {
public:
    virtual ~ShowObserver() = default;
    /// The script is prepared and the window laid out; nothing has moved yet.
    virtual void showPrepared(const ShowTables& tables, const DisplayGeometry& geometry,
                              QWidget& window) = 0;
    /// The loop is about to take its first turn.
    virtual void loopStarted() = 0;
    virtual void stepDone(const StepRecord& step) = 0;
    /// A limit of the script has been reached, or the whole script fits on the screen.
    virtual void limitReached() = 0;
    /// The loop has ended.
    virtual void loopEnded() = 0;
};

} // namespace velmora
