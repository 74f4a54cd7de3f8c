#pragma once

#include "display/show_screen.h"

#include <vector>

namespace velmora {

/// A display window that keeps what the scroll loop tells it.
class FakeShowScreen final : public ShowScreen {
public:
    void setElapsedText(const QString& text) override { elapsed = text; }
    void setRemainingText(const QString& text) override { remaining = text; }
    void setScrollValue(int line) override { scrollValues.push_back(line); }
    void showDirection(int direction) override { shownDirection = direction; }
    void moveSpeedIndicator() override {}
    void showNotice() override { ++noticesShown; }
    void showPicture() override { ++shown; }
    void focusPicture() override {}
    void showRunState() override { ++runStates; }

    QString elapsed;
    QString remaining;
    std::vector<int> scrollValues;
    int shownDirection = 1;
    /// How often the notice followed its time.
    int noticesShown = 0;
    int runStates = 0;
    int shown = 0;
};

} // namespace velmora
