#pragma once

#include "display/show_observer.h"

#include <functional>

namespace velmora {

/// Watches a show without a word: for observers that want to hear of one thing only.
class QuietObserver : public ShowObserver {
public:
    void showPrepared(const ShowTables&, const DisplayGeometry&, QWidget&) override {}
    void loopStarted() override {}
    void stepDone(const StepRecord&) override {}
    void limitReached() override {
        ++limits;
        if (onLimit) {
            onLimit();
        }
    }
    void loopEnded() override {}

    int limits = 0;
    std::function<void()> onLimit;
};

} // namespace velmora
