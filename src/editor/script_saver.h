#pragma once

#include "platform/outcome.h"

#include <QString>

namespace velmora {

class EditorHost;
class Session;
struct FileDialogChoice;

/// Writes the script to disk, as RTF with white text turned black or as plain text. Owned by the
/// main window.
class ScriptSaver final {
public:
    ScriptSaver(Session& session, EditorHost& host);

    /// The Save command, also that of the exit: asks for a file and writes it. The name's extension
    /// follows the dialog's filter. A script that was written clears TextChanged and SaveFailed; a
    /// failure is told to the user and leaves an old file and both flags as they were. Every way
    /// out clears ExitSaveInProgress. Inside a load, another save or a show it does nothing else.
    void SaveText();

private:
    void save();
    void writeScript(const FileDialogChoice& choice);
    void tellThatNothingIsSaved();
    void reportFailure(const QString& path, const QString& reason);

    Session& m_session;
    EditorHost& m_host;
};

/// Writes rtb1 to a path: as plain text when it ends in ".txt", else as RTF with white text turned
/// black. Prepares the RTF in rtb2, which is empty afterwards. Only this and nothing else: no
/// variable of the script's state changes.
Outcome writeScriptTo(Session& session, const QString& path);

} // namespace velmora
