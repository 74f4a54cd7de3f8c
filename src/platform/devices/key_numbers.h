#pragma once

class QKeyEvent;

namespace velmora {

/// Virtual-key numbers, in which the keys of a show are told.
namespace key {
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Digit0 = 48;
inline constexpr int Digit1 = 49;
inline constexpr int F9 = 120;
inline constexpr int F10 = 121;
inline constexpr int F12 = 123;
} // namespace key

/// Virtual-key number of a key event, 0 for a key that a show does not know.
[[nodiscard]] int virtualKey(const QKeyEvent& event);

} // namespace velmora
