#pragma once

namespace velmora {

/// The program from its command line to its exit status: 0, 1 for an unattended run that failed, 2
/// for a command line that it does not understand.
[[nodiscard]] int runApplication(int argc, char** argv);

} // namespace velmora
