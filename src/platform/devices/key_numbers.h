#pragma once

class QKeyEvent;

namespace velmora {

/// Virtual-key numbers, in which the keys of a show are told.
namespace key {
inline constexpr int Backspace = 8;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Digit0 = 48;
inline constexpr int Digit1 = 49;
inline constexpr int Digit2 = 50;
inline constexpr int Digit9 = 57;
inline constexpr int B = 66;
inline constexpr int F = 70;
inline constexpr int F1 = 112;
inline constexpr int F3 = 114;
inline constexpr int F9 = 120;
inline constexpr int F10 = 121;
inline constexpr int F12 = 123;
inline constexpr int F13 = 124;
inline constexpr int F14 = 125;
inline constexpr int F15 = 126;
inline constexpr int F16 = 127;
inline constexpr int F17 = 128;
inline constexpr int F18 = 129;
inline constexpr int F19 = 130;
inline constexpr int F20 = 131;
inline constexpr int F21 = 132;
inline constexpr int F22 = 133;
inline constexpr int F23 = 134;
inline constexpr int F24 = 135;

/// Shift states that go with a key number. The sum of what is held.
inline constexpr int NoShift = 0;
inline constexpr int Shift = 1;
inline constexpr int Control = 2;
inline constexpr int Alt = 4;
} // namespace key

/// The key of an event as Qt numbers it; on a keyboard of another script the letter that a Latin
/// keyboard has in its place, as X11 numbers the places.
[[nodiscard]] int latinKey(const QKeyEvent& event);

/// Virtual-key number of a key event, 0 for a key that a show does not know. F13 to F24 are found
/// by their place on the keyboard too: usual X11 key maps give these keys other meanings. So are B
/// and F on keyboards of another script.
[[nodiscard]] int virtualKey(const QKeyEvent& event);

/// Shift state of a key event.
[[nodiscard]] int shiftState(const QKeyEvent& event);

} // namespace velmora
