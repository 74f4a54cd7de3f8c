#pragma once

#include <QRect>

namespace velmora {

/// What the layout of a display window depends on. Pixels of display 1 throughout.
struct GeometryInput final {
    int screenWidth = 0;
    int screenHeight = 0;
    /// Wrap width of the script in unzoomed 96-dpi pixels.
    double wrapWidth = 0;
    double FontScale = 1;
    /// 1: no controls, the text stands lower and more to the right.
    int FullScreenMode = 0;
};

/// Where everything of a display window lies, in the window's coordinates.
struct DisplayGeometry final {
    int SideMargin = 0;
    /// The visible text window.
    QRect Picture1;
    /// Strip left of Picture1 that holds the cue arrow.
    QRect Picture3;
    /// Direction marks and the notice: one place.
    QRect directionMark;
    /// Speed scale.
    QRect Picture6;
    QRect Label1;
    QRect Label4;
    QRect Label5;
    QRect Label6;
    QRect Vscroll1;
    QRect Vscroll2;
    QRect Command3;
    /// 1.68 on screens up to 480 pixels high, else 2.05. Told by the set-up; nothing reads it.
    double LineHeightFactor = 2.05;

    /// Picture1's size.
    [[nodiscard]] int WindowWidth() const { return Picture1.width(); }
    [[nodiscard]] int WindowHeight() const { return Picture1.height(); }
    /// Rows of text that Picture1 shows: the margins above and below stay background.
    [[nodiscard]] int textRows() const;
};

/// Rows above the text in Picture1 that are never written.
inline constexpr int TextTopMargin = 10;
/// Rows of Picture1 that are not text: 10 above and 9 below.
inline constexpr int TextMargins = 19;
/// Widths of the cue arrow's strip and of the scroll bar.
inline constexpr int ArrowStripWidth = 40;
inline constexpr int ScrollBarWidth = 19;
/// How far the text moves when the controls go.
inline constexpr int FullScreenShiftX = 10;
inline constexpr int FullScreenShiftY = 20;

[[nodiscard]] DisplayGeometry layOutDisplay(const GeometryInput& input);

} // namespace velmora
