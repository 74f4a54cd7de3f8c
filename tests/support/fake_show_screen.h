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
    void hideNotice() override { ++noticesHidden; }
    void showPicture() override { ++shown; }
    void focusPicture() override {}

    QString elapsed;
    QString remaining;
    std::vector<int> scrollValues;
    int shownDirection = 1;
    int noticesHidden = 0;
    int shown = 0;
};

} // namespace velmora
