#pragma once

#include "platform/outcome.h"

#include <functional>

namespace velmora {

class EditorHost;
class Session;

/// The unload step of Form1: the question, the settings, the save, in this order. Owned by Form1.
///
/// The settings are written before the script, so that a Yes whose save is then cancelled leaves
/// them on disk although the program goes on. A Cancel writes nothing. Settings that cannot be
/// written are told to the user and hold nothing up.
class ExitSequence final {
public:
    struct Steps final {
        /// Opens the question; the answer is left in ExitAnswer.
        std::function<void()> askToSave;
        std::function<Outcome()> writeSettings;
        /// The Save command; clears SaveFailed when the script was written.
        std::function<void()> saveScript;
    };

    ExitSequence(Session& session, EditorHost& host, Steps steps);

    /// True: the program may end. False: it goes on, and the editor has the keyboard.
    [[nodiscard]] bool run();

private:
    void askWhatBecomesOfTheText();
    void writeSettings();
    void saveIfAsked();

    Session& m_session;
    EditorHost& m_host;
    Steps m_steps;
};

} // namespace velmora
