#pragma once

#include <QString>

#include <optional>

namespace velmora {

class Session;

/// What `--rehearse` was asked for. The session's settings (speed, range, turbo, margin, mirror)
/// have been set from the command line by the caller, and its screen measured.
struct RehearsalOptions final {
    /// Absolute path of the script.
    QString script;
    /// Leaves after so many seconds; without a value at the script's end.
    std::optional<double> forSeconds;
    /// JSON report; empty for none.
    QString reportPath;
    /// PNG of the operator's window half-way; empty for none.
    QString picturePath;
};

/// Loads the script and plays it as a show for real with nobody at the keys. Prints the figures as
/// a short table on stdout; on failure a message on stderr. Returns the exit status: 0, or 1 when
/// the script could not be loaded or a file not written.
[[nodiscard]] int runRehearsal(Session& session, const RehearsalOptions& options);

} // namespace velmora
