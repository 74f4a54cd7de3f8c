#pragma once

#include <functional>

namespace velmora {

class EditorHost;
class Session;

/// The commands that start a show: the Start button, F1 and F2. Each says where the show begins, in
/// StartFromCursor and StartPosition, and runs it; with an empty script it gives the editor the
/// keyboard and nothing else. Owned by Form1.
class StartCommands final {
public:
    /// runPrompter carries a show out and returns when it is over.
    StartCommands(Session& session, EditorHost& host, std::function<void()> runPrompter);

    /// At the first line or at the caret's, as FirstDisplayLine says.
    void StartButton();
    /// F1: at the first line.
    void fromBeginning();
    /// F2: at the caret's line.
    void fromCursor();

private:
    [[nodiscard]] double caretLine() const;
    void startByKey(int fromCursor, double position);

    Session& m_session;
    EditorHost& m_host;
    std::function<void()> m_runPrompter;
};

} // namespace velmora
