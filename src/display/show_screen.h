#pragma once

#include <QString>

namespace velmora {

/// The display window as the loop and the steering of a show see it. The tests have a fake.
class ShowScreen {
public:
    virtual ~ShowScreen() = default;
    /// Label1: the elapsed clock.
    virtual void setElapsedText(const QString& text) = 0;
    /// Label4: the remaining time.
    virtual void setRemainingText(const QString& text) = 0;
    /// Vscroll1's value without its event: the line at the leading edge.
    virtual void setScrollValue(int line) = 0;
    /// Image1, the thumb of the speed scale, follows ScrollSpeed.
    virtual void moveSpeedIndicator() = 0;
    /// The controls follow the show's state: the mark of the direction, the notice, the buttons and
    /// the bar of a timed show.
    virtual void showState() = 0;
    /// Shows Picture1 once the first picture is complete, and gives it the focus.
    virtual void showPicture() = 0;
    virtual void focusPicture() = 0;
};

} // namespace velmora
