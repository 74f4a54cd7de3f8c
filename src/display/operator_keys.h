#pragma once

namespace velmora {

class Session;

/// What the keys of a show do to its window. The display window implements it.
class OperatorActions {
public:
    virtual ~OperatorActions() = default;
    /// ScrollSpeed has changed: the thumb of the scale follows.
    virtual void moveSpeedIndicator() = 0;
    /// Vscroll1's value and its change handler: a reposition.
    virtual void jumpToLine(int line) = 0;
    [[nodiscard]] virtual int lastScrollValue() const = 0;
    virtual void toggleBlank() = 0;
    virtual void toggleArrow() = 0;
    virtual void toggleFullScreen() = 0;
};

/// The keys of a running show, by virtual-key number, tested in a fixed order.
class OperatorKeys final {
public:
    OperatorKeys(Session& session, OperatorActions& actions);

    /// Carries out a key. keyCode becomes 0 where it was used up.
    void keyDown(int& keyCode);

    /// PauseState's toggle: scrolling and paused, and the first start.
    void togglePause();

private:
    void positionKeys(int& keyCode);
    void displayKeys(int& keyCode);
    void plainKeys(int& keyCode);
    void setSpeed(double scrollSpeed);

    Session& m_session;
    OperatorActions& m_actions;
};

} // namespace velmora
