#pragma once

namespace velmora {

class Session;
struct RehearsalArguments;

/// Loads the script and plays it as a show for real with nobody at the keys. Prints the figures as
/// a short table on stdout; on failure a message on stderr. Returns the exit status: 0, or 1 when
/// the script could not be loaded or a file not written.
[[nodiscard]] int runRehearsal(Session& session, const RehearsalArguments& arguments);

} // namespace velmora
