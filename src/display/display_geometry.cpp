#include "display/display_geometry.h"

#include "display/font_scale.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr int ReferenceWidth = 640;
constexpr int ReferenceHeight = 480;
constexpr int ControlRowHeight = 36;
/// Air that the fitted text keeps from the window's right edge.
constexpr double TextGap = 12;
/// How far a display window grows over a display 2 that is narrower by so much.
constexpr int WiderBy = 39;
constexpr int MostGrowth = 40;

int sideMargin(const GeometryInput& input) {
    const double textWidth = input.wrapWidth * input.FontScale;
    const double spare = freeWidth(input.screenWidth) - textWidth - TextGap;
    return static_cast<int>(std::max(0.0, std::floor(spare / 2)));
}

/// The rows of controls at the window's foot.
void layOutControls(const GeometryInput& input, DisplayGeometry& geometry) {
    const int baseX = (input.screenWidth - ReferenceWidth) / 2;
    const int baseY = input.screenHeight - ReferenceHeight;
    const auto place = [&](int x, int y, int width, int height) {
        const bool mirrored = input.traits.face == Orientation::Mirrored;
        return QRect(mirrored ? input.screenWidth - x - width : x, baseY + y, width, height);
    };
    geometry.directionMark = place(baseX + 25, 445, 39, 33);
    geometry.Picture6 = place(baseX + 74, 445, 347, 34);
    geometry.Command1 = place(baseX + 25, 445, 78, 33);
    geometry.Hscroll1 = place(baseX + 112, 453, 190, 17);
    geometry.Label2 = place(baseX + 318, 446, 100, 15);
    geometry.Label3 = place(baseX + 318, 461, 65, 16);
    geometry.Label6 = place(baseX + 433, 446, 65, 15);
    geometry.Label5 = place(baseX + 433, 463, 65, 15);
    geometry.Label1 = place(baseX + 500, 445, 65, 16);
    geometry.Label4 = place(baseX + 500, 462, 65, 16);
    geometry.Vscroll2 = place(0, 445, 18, 32);
    geometry.Command3 = place(input.screenWidth - 68, 445, 68, 33);
}

/// The text window on display 1, so that display 2 can show the same rows.
QRect sharedPicture(const QRect& alone, const GeometryInput& input) {
    const QSize second = input.secondDisplay;
    QRect picture = alone;
    const int higherBy = input.screenHeight - second.height();
    if (higherBy > 0) {
        picture.setHeight(std::max(TextMargins + 1, picture.height() - higherBy));
        picture.moveTop(higherBy / 2);
        if (higherBy >= ControlRowHeight) {
            picture.setHeight(picture.height() + ControlRowHeight);
            picture.moveTop(std::max(0, picture.top() - ControlRowHeight / 2));
        }
    }
    if (input.screenWidth - second.width() >= WiderBy) {
        const int room = second.width() - ArrowStripWidth - picture.width();
        const int growth = std::clamp(room, 0, MostGrowth);
        picture.setWidth(picture.width() + growth);
        picture.moveLeft(picture.left() - growth / 2);
    }
    return picture;
}

} // namespace

int DisplayGeometry::textRows() const {
    return std::max(1, Picture1.height() - TextMargins);
}

DisplayGeometry layOutDisplay(const GeometryInput& input) {
    DisplayGeometry geometry;
    layOutControls(input, geometry);
    geometry.LineHeightFactor = input.screenHeight <= ReferenceHeight ? 1.68 : 2.05;
    geometry.SideMargin = sideMargin(input);
    const int width = static_cast<int>(freeWidth(input.screenWidth)) - 2 * geometry.SideMargin;
    QRect picture(geometry.SideMargin + ArrowStripWidth, 0, std::max(1, width),
                  std::max(TextMargins + 1, input.screenHeight - ControlRowHeight));
    if (!input.secondDisplay.isEmpty()) {
        picture = sharedPicture(picture, input);
    }
    geometry.Vscroll1 = QRect(picture.right() + 1, picture.top(), ScrollBarWidth, picture.height());
    if (input.FullScreenMode == 1) {
        picture.translate(FullScreenShiftX, FullScreenShiftY);
    }
    geometry.Picture1 = picture;
    geometry.Picture3 =
        QRect(picture.left() - ArrowStripWidth, picture.top(), ArrowStripWidth, picture.height());
    if (!input.secondDisplay.isEmpty()) {
        layOutSpeaker(input.secondDisplay, geometry);
    }
    return geometry;
}

void layOutSpeaker(const QSize& display, DisplayGeometry& geometry) {
    const QSize picture = geometry.Picture1.size();
    const int spare = display.width() - picture.width() - ArrowStripWidth;
    const int left = spare < 0 ? spare : spare / 2;
    const int top = std::max(0, (display.height() - picture.height()) / 2);
    geometry.speakerPicture1 = QRect(QPoint(left, top), picture);
    geometry.speakerPicture3 =
        QRect(left + picture.width(), top, ArrowStripWidth, picture.height());
}

} // namespace velmora
