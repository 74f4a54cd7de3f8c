#pragma once

namespace velmora {

class Session;
class ShowActions;

/// The foot pedal: its buttons become keys of the show. Made before the loop of a show begins, one
/// for each show; the loop polls it. Does nothing unless ControllerType is the foot controller.
class FootPedal final {
public:
    /// Which buttons count: a timed show has no speed to change.
    enum class Buttons { All, PauseOnly };

    /// Opens the joystick where the pedal is in use. A button that is held now counts as soon as it
    /// has been let go once.
    FootPedal(Session& session, ShowActions& actions, Buttons buttons);

    /// Asks the pedal once and sends the key of the button that is held, if any. The pause button
    /// is waited for until it is let go, with events served, or until ExitRequested.
    void poll();

private:
    void repeat(int keyCode);
    void sendOnRelease();
    void send(int keyCode);

    Session& m_session;
    ShowActions& m_actions;
    Buttons m_buttons;
    bool m_ignoresHeldButton = false;
    /// Timer value of the last key that repeats; below 0 for none yet.
    double ButtonRepeatTime = -1;
};

} // namespace velmora
