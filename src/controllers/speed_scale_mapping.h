#pragma once

namespace velmora {

/// Where the parts of the speed scale Picture6 lie and what a place on it means. Places are in
/// pixels from the scale's left edge. The two windows differ in this value alone: seen in a mirror,
/// the scale runs the other way.
struct SpeedScaleMapping final {
    enum class Part { None, Start, Pause, Scale };
    /// The part at a place.
    [[nodiscard]] Part partAt(double x) const;
    /// ScrollSpeed of a press at a place on the scale, a whole number of 0 to 255.
    [[nodiscard]] double pressedSpeed(double x) const;
    /// The same for a drag with a button held, which is limited to the scale first.
    [[nodiscard]] double draggedSpeed(double x) const;
    /// Left edge of the thumb Image1 at a speed.
    [[nodiscard]] double thumbLeft(double scrollSpeed) const;
    /// Left edge of a thumb that was seized grabbedAt pixels from its left edge and is dragged to a
    /// place: a whole number, within the scale.
    [[nodiscard]] double draggedThumbLeft(double x, double grabbedAt) const;
    /// ScrollSpeed of a dragged thumb, a whole number of 0 to 255.
    [[nodiscard]] double thumbSpeed(double left) const;

    /// The two buttons lie at the right end instead of the left one.
    bool buttonsAtRight;
    /// The buttons' edges: of start, and of pause towards the scale.
    double startEdge;
    double pauseEdge;
    /// Speed at the scale's origin, and whether it falls or rises to the right of it (-1, +1).
    double speedAtOrigin;
    double direction;
    double pressOrigin;
    /// A drag at or beyond a limit counts as one at the place beside it.
    double dragLowLimit;
    double dragLowPlace;
    double dragHighLimit;
    double dragHighPlace;
    /// Thumb: its place at speed 0, its range, and the speed a pixel of it.
    double thumbAtZero;
    double thumbLowest;
    double thumbHighest;
    double speedPerThumbPixel;
};

/// Speed 255 at the left end, 0 at the right one.
inline constexpr SpeedScaleMapping PlainSpeedScale{false, 36,  72,  255, -1, 93,  73,
                                                   73,    346, 356, 315, 94, 315, 1.1538417};
/// Speed 0 at the left end, as the mirror shows it.
inline constexpr SpeedScaleMapping MirroredSpeedScale{true, 311, 275, 0,  1,  23,  23,
                                                      23,   257, 257, 23, 23, 244, 1.1538};

} // namespace velmora
