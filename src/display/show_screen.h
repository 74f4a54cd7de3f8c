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
    /// Picture4 (forward, +1) or Picture5 (backward, -1), where the controls are shown.
    virtual void showDirection(int direction) = 0;
    /// Picture7, the notice, follows MessageShownAt.
    virtual void showNotice() = 0;
    /// Shows Picture1 once the first picture is complete, and gives it the focus.
    virtual void showPicture() = 0;
    virtual void focusPicture() = 0;
    /// A timed show has become ready, started or ended: its buttons and its bar follow.
    virtual void showRunState() = 0;
};

} // namespace velmora
