#pragma once

#include <QString>

namespace velmora {

class Session;

/// Carries out `--convert`: loads one file and saves it as another, by the editor's own load and
/// save. The new file's ending, .rtf or .txt, tells its format; any other is refused. On failure a
/// message goes to stderr and nothing is written; on success a note does where the file showed more
/// than a script can hold. Returns the exit status, 0 or 1. Needs an application object, for the
/// fonts, and the default settings in the session.
[[nodiscard]] int convertScript(Session& session, const QString& from, const QString& to);

} // namespace velmora
