#pragma once

#include "display/display_traits.h"

#include <QRect>
#include <QSize>

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
    DisplayTraits traits = {};
    /// Size of the speaker's display; empty where there is none.
    QSize secondDisplay = {};
};

/// Where everything of a display window lies, in the window's coordinates. A mirrored window is the
/// plain one seen in a mirror.
struct DisplayGeometry final {
    /// Width of the display of the start.
    int homeWidth = 0;
    /// Size of the controls as a share of what is told for them, 1 or more.
    double controlUnit = 1;
    int SideMargin = 0;
    /// The visible text window.
    QRect Picture1;
    /// Picture1's size as a share of what it has on the display of the start.
    double share = 1;
    /// Strip beside Picture1 that holds the cue arrow.
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
    /// Timed shows only: the start button (Command2, the reset, takes its place), the bar of the
    /// duration, and the duration with its caption.
    QRect Command1;
    QRect Hscroll1;
    QRect Label2;
    QRect Label3;
    /// The speaker's text window and arrow strip, in the coordinates of display 2.
    QRect speakerPicture1;
    double speakerShare = 1;
    QRect speakerPicture3;
    /// 1.68 on screens up to 480 pixels high, else 2.05. Told by the set-up; nothing reads it.
    double LineHeightFactor = 2.05;

    /// Picture1's size.
    [[nodiscard]] int WindowWidth() const { return Picture1.width(); }
    [[nodiscard]] int WindowHeight() const { return Picture1.height(); }
    /// Rows of text that Picture1 shows, where it is not shrunk: the margins above and below stay
    /// background.
    [[nodiscard]] int textRows() const;
};

/// Rows above the text in Picture1 that are never written.
inline constexpr int TextTopMargin = 10;
/// Rows of Picture1 that are not text: 10 above and 9 below.
inline constexpr int TextMargins = 19;
/// Widths of the cue arrow's strip and of the scroll bar, on a display up to 1920 pixels wide.
inline constexpr int ArrowStripWidth = 40;
inline constexpr int ScrollBarWidth = 19;
/// How far the text moves when the controls go.
inline constexpr int FullScreenShiftX = 10;
inline constexpr int FullScreenShiftY = 20;

/// The same on a display so many pixels wide.
[[nodiscard]] int arrowStripWidth(int displayWidth);
[[nodiscard]] int scrollBarWidth(int displayWidth);

[[nodiscard]] DisplayGeometry layOutDisplay(const GeometryInput& input);

/// Places the speaker's picture, of the size of the operator's, in the middle of a display 2 of
/// this size, with the arrow on the flipped side. On a display that is too small it is shrunk.
void layOutSpeaker(const QSize& display, DisplayGeometry& geometry);

/// Moves the operator's layout to a display of another size in the middle of a show: the controls
/// keep to its edges; the picture shows the same lines, shrunk where the display is too small. To
/// be done behind the speaker's, whose picture it is too.
void moveToDisplay(const QSize& display, const DisplayTraits& traits, DisplayGeometry& geometry);

} // namespace velmora
