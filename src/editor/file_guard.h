#pragma once

#include "core/session.h"

namespace velmora {

/// Marks a load, a save or a paste as running for as long as it lives: all three use the staging
/// control. The first two run handlers inside themselves (dialogs, the pump), and none may begin
/// inside another or inside a show.
class FileGuard final {
public:
    explicit FileGuard(Session& session)
        : m_script(session.script),
          m_entered(!session.script.fileInProgress && session.show.ShowRunning == 0) {
        if (m_entered) {
            m_script.fileInProgress = true;
        }
    }
    ~FileGuard() {
        if (m_entered) {
            m_script.fileInProgress = false;
        }
    }
    FileGuard(const FileGuard&) = delete;
    FileGuard& operator=(const FileGuard&) = delete;

    /// False: something else runs, do nothing.
    [[nodiscard]] bool entered() const { return m_entered; }

private:
    ScriptState& m_script;
    bool m_entered = false;
};

} // namespace velmora
