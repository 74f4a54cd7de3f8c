#pragma once

#include "display/show_observer.h"

namespace velmora {

/// Watches a show without a word: for observers that want to hear of one thing only.
class QuietObserver : public ShowObserver {
public:
    void showPrepared(const ShowTables&, const DisplayGeometry&, QWidget&) override {}
    void loopStarted() override {}
    void stepDone(const StepRecord&) override {}
    void limitReached() override { ++limits; }
    void loopEnded() override {}

    int limits = 0;
};

} // namespace velmora
