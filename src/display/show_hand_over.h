#pragma once

#include <memory>

namespace velmora {

class DisplayWindow;
class EditorHost;
class Session;
class ShowObserver;

/// The hand-over between the editor and the display windows, and back.
/// Owned by Form1 (or by the rehearsal); one show at a time.
class ShowHandOver final {
public:
    ShowHandOver(Session& session, EditorHost& host);

    /// Carries out one show: takes the script, opens the display window that the settings ask for,
    /// and returns when the show is over and the editor is restored. StartFromCursor and
    /// StartPosition must be set. Does nothing while a show runs, or with an empty script.
    void RunPrompter();

    /// Watches the coming shows; may be null. Must outlive them.
    void setObserver(ShowObserver* observer) { m_observer = observer; }

private:
    void takeScript();
    [[nodiscard]] std::unique_ptr<DisplayWindow> createDisplayWindow() const;
    void runDisplayWindow();
    void restoreEditor();

    Session& m_session;
    EditorHost& m_host;
    ShowObserver* m_observer = nullptr;
    bool m_running = false;
};

} // namespace velmora
