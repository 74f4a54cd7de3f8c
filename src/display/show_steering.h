#pragma once

namespace velmora {

class Session;
class ShowScreen;

/// What an operator does to the motion of a show, whichever key, button or device it comes from.
/// Writes the show's variables; the loop's next turn acts on them.
class ShowSteering final {
public:
    ShowSteering(Session& session, ShowScreen& screen);

    /// PauseState's toggle: scrolling and paused, and the first start.
    void togglePause();
    void start();
    void leave();
    /// Turns the text: by the speed number in Split Range, by a request in Full Range.
    void reverse();
    /// ScrollSpeed, limited to 0 to 255; the thumb of the scale follows.
    void setSpeed(double scrollSpeed);

private:
    Session& m_session;
    ShowScreen& m_screen;
};

} // namespace velmora
