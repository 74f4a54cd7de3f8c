#pragma once

#include "core/session.h"

namespace velmora {

/// Marks a load or a save as running for as long as it lives. Both run handlers inside themselves
/// (dialogs, the pump), and neither may begin inside the other or inside a show.
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
