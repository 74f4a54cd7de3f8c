#pragma once

#include "platform/timing/presenter.h"

#include <functional>

namespace velmora {

/// Paints nothing, but counts the steps.
class FakePresenter final : public Presenter {
public:
    bool stepDone(std::int64_t) override {
        ++steps;
        if (onStep) {
            onStep();
        }
        return true;
    }
    [[nodiscard]] std::int64_t lockedPeriod(std::int64_t period) const override {
        return lock ? lock(period) : period;
    }
    void presentNow() override {}
    void settle() override {}

    int steps = 0;
    /// Runs inside a step, where a paint would.
    std::function<void()> onStep;
    /// The answer of lockedPeriod; without it no period is locked.
    std::function<std::int64_t(std::int64_t)> lock;
};

} // namespace velmora
