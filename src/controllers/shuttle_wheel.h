#pragma once

#include "platform/devices/key_numbers.h"

#include <array>
#include <optional>

namespace velmora {

class Clock;
class Session;
class ShowActions;

/// How much of ScrollSpeed a jog key moves, by the time since the one before: the quicker, the
/// more.
struct JogStep final {
    /// Longest time of the step, in milliseconds.
    double upToMs;
    int step;
};
inline constexpr std::array<JogStep, 9> JogSteps = {
    {{10, 10}, {20, 9}, {30, 8}, {40, 7}, {50, 6}, {60, 5}, {70, 4}, {80, 3}, {90, 2}}};
inline constexpr int SlowestJogStep = 1;
/// Of the first key of a show, and where the clock went back.
inline constexpr int FirstJogStep = 2;

/// A position of the shuttle ring: the key that it sends, and how many lines the script moves.
struct ShuttleRingStep final {
    int keyCode;
    int lines;
};
inline constexpr std::array<ShuttleRingStep, 8> ShuttleRingSteps = {{{key::F15, 1},
                                                                     {key::F16, 2},
                                                                     {key::F17, 4},
                                                                     {key::F18, 8},
                                                                     {key::F19, -1},
                                                                     {key::F20, -2},
                                                                     {key::F21, -4},
                                                                     {key::F22, -8}}};

/// Lines of a key of the shuttle ring; none for any other key.
[[nodiscard]] std::optional<int> shuttleRingLines(int keyCode);

/// Vscroll1's value after a step of the ring, lastLine being its Max; none where no step is to be
/// made, at the end that it points to. The scroll bar refuses a value beyond an end: the line
/// stays.
[[nodiscard]] std::optional<int> shuttleRingTarget(int lines, int line, int lastLine);

/// The jog wheel: F13 raises ScrollSpeed and F14 lowers it. One for each show, since the first key
/// of a show has a step of its own.
class JogWheel final {
public:
    JogWheel(Session& session, ShowActions& actions);

    /// Carries out F13 or F14.
    void keyDown(int keyCode);

private:
    int nextStep();

    Session& m_session;
    ShowActions& m_actions;
    /// Milliseconds of the counter at the last jog key, 0 for none yet.
    double JogLastKeyTime = 0;
};

} // namespace velmora
