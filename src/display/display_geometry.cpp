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
void layOutControls(const QSize& display, const DisplayTraits& traits, DisplayGeometry& geometry) {
    const int baseX = (display.width() - ReferenceWidth) / 2;
    const int baseY = display.height() - ReferenceHeight;
    const auto place = [&](int x, int y, int width, int height) {
        const bool mirrored = traits.face == Orientation::Mirrored;
        return QRect(mirrored ? display.width() - x - width : x, baseY + y, width, height);
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
    geometry.Command3 = place(display.width() - 68, 445, 68, 33);
}

/// The arrow's strip and the scroll bar stand beside the text.
void layOutBeside(const QRect& picture, DisplayGeometry& geometry) {
    geometry.Picture3 =
        QRect(picture.left() - ArrowStripWidth, picture.top(), ArrowStripWidth, picture.height());
    geometry.Vscroll1 = QRect(picture.right() + 1, picture.top(), ScrollBarWidth, picture.height());
}

/// The picture where it is, if it fits into the room; else as large as it can be there.
QRect fitted(const QRect& picture, const QRect& room) {
    const double share = std::min({1.0, static_cast<double>(room.width()) / picture.width(),
                                   static_cast<double>(room.height()) / picture.height()});
    const auto shrunk = [share](int length) {
        return std::max(1, static_cast<int>(std::floor(length * share)));
    };
    QRect fit(picture.topLeft(), QSize(shrunk(picture.width()), shrunk(picture.height())));
    fit.moveLeft(std::max(room.left(), std::min(fit.left(), room.right() + 1 - fit.width())));
    fit.moveTop(std::max(room.top(), std::min(fit.top(), room.bottom() + 1 - fit.height())));
    return fit;
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
    layOutControls(QSize(input.screenWidth, input.screenHeight), input.traits, geometry);
    geometry.LineHeightFactor = input.screenHeight <= ReferenceHeight ? 1.68 : 2.05;
    geometry.SideMargin = sideMargin(input);
    const int width = static_cast<int>(freeWidth(input.screenWidth)) - 2 * geometry.SideMargin;
    QRect picture(geometry.SideMargin + ArrowStripWidth, 0, std::max(1, width),
                  std::max(TextMargins + 1, input.screenHeight - ControlRowHeight));
    if (!input.secondDisplay.isEmpty()) {
        picture = sharedPicture(picture, input);
    }
    // Full screen hides the scroll bar.
    if (input.FullScreenMode == 1) {
        picture.translate(FullScreenShiftX, FullScreenShiftY);
    }
    geometry.Picture1 = picture;
    layOutBeside(picture, geometry);
    if (!input.secondDisplay.isEmpty()) {
        layOutSpeaker(input.secondDisplay, geometry);
    }
    return geometry;
}

void layOutSpeaker(const QSize& display, DisplayGeometry& geometry) {
    const QRect room(0, 0, display.width() - ArrowStripWidth, display.height());
    QRect picture = fitted(QRect(QPoint(0, 0), geometry.Picture1.size()), room);
    picture.moveTo((room.width() - picture.width()) / 2, (room.height() - picture.height()) / 2);
    geometry.speakerPicture1 = picture;
    geometry.speakerShare = static_cast<double>(picture.width()) / geometry.WindowWidth();
    geometry.speakerPicture3 =
        QRect(picture.right() + 1, picture.top(), ArrowStripWidth, picture.height());
}

void moveToDisplay(const QSize& display, const DisplayTraits& traits, DisplayGeometry& geometry) {
    const QRect room(ArrowStripWidth, 0, display.width() - ArrowStripWidth - ScrollBarWidth,
                     display.height() - ControlRowHeight);
    const QRect picture = fitted(geometry.Picture1, room);
    geometry.share = static_cast<double>(picture.width()) / geometry.WindowWidth();
    geometry.Picture1 = picture;
    layOutControls(display, traits, geometry);
    layOutBeside(geometry.Picture1, geometry);
}

} // namespace velmora
