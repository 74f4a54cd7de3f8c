#pragma once

#include "platform/timing/presenter.h"

#include <functional>

namespace velmora {

/// Paints nothing, but counts: every step is painted, or one in stepsPerPaint.
class FakePresenter final : public Presenter {
public:
    bool stepDone(std::int64_t) override {
        ++steps;
        if (onStep) {
            onStep();
        }
        m_behind = steps % stepsPerPaint != 0;
        paints += m_behind ? 0 : 1;
        return !m_behind;
    }
    [[nodiscard]] std::int64_t lockedPeriod(std::int64_t period) const override {
        return lock ? lock(period) : period;
    }
    void presentNow() override {
        m_behind = false;
        ++paints;
    }
    void settle() override {
        if (m_behind) {
            presentNow();
        }
    }

    int steps = 0;
    int paints = 0;
    int stepsPerPaint = 1;
    /// Runs inside a step, where a paint would.
    std::function<void()> onStep;
    /// The answer of lockedPeriod; without it no period is locked.
    std::function<std::int64_t(std::int64_t)> lock;

private:
    bool m_behind = false;
};

} // namespace velmora
