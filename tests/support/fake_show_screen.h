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
    void moveSpeedIndicator() override {}
    void showState() override { ++statesShown; }
    void showPicture() override { ++shown; }
    void focusPicture() override {}

    QString elapsed;
    QString remaining;
    std::vector<int> scrollValues;
    /// How often the controls followed the show's state.
    int statesShown = 0;
    int shown = 0;
};

} // namespace velmora
