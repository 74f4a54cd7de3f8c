#pragma once

namespace velmora {

class Session;
struct ScreenState;

/// Limits of ColumnMargin, the width that the text column gives up.
inline constexpr int MinColumnMargin = 12;
inline constexpr int MaxColumnMargin = 320;

/// Fills the whole ScreenState from display 1, where the editor stands; from the primary screen
/// where no display is told.
void measureScreen(Session& session);

/// ScaleX of a screen so many pixels wide.
[[nodiscard]] double scaleXFor(double pixelsWide);
/// ScaleY of a screen so many pixels high, a tenth of the growth above the plain ratio included.
[[nodiscard]] double scaleYFor(double pixelsHigh);

/// A length of a show's controls on a display so many pixels wide: as told up to a width of 1920,
/// beyond that it grows with the display.
[[nodiscard]] int controlLength(int pixels, int displayWidth);

/// The scale at which a window so many pixels wide shows the whole text column: ScaleX, or less
/// where the window is narrower than its display.
[[nodiscard]] double columnScale(const ScreenState& screen, int windowWidth);

/// The editor's zoom at such a scale: scale * 20 rounded to a whole number, over 10. Screen pixels
/// for one 96-dpi pixel of the document.
[[nodiscard]] double editorZoom(double scale);

/// The width at which the script wraps, in unzoomed 96-dpi pixels. It depends on the column's
/// margin alone, so that lines break alike on every screen.
[[nodiscard]] double wrapWidthForMargin(int columnMargin);
/// The widest margin that leaves the script this wrap width, in unzoomed 96-dpi pixels.
[[nodiscard]] int marginForWrapWidth(double wrapWidth);

} // namespace velmora
