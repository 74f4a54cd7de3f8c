#pragma once

namespace velmora {

struct CommandLine;

/// `--convert` and `--rehearse`: runs without anyone at the keys, on default settings. They take no
/// lock, ask nothing and write no file of the program's own. Each makes its own application object
/// and returns the exit status.
[[nodiscard]] int runConversion(const CommandLine& line, char** argv);
[[nodiscard]] int runUnwatchedShow(const CommandLine& line, char** argv);

} // namespace velmora
