#include "display/display_geometry.h"

#include "core/screen_scale.h"
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

/// The row of controls at the window's foot, told on a screen of 640 by 480. A steered show's
/// stands in the middle. A timed show's keeps to the edges, so that the bar of the duration between
/// them is as wide as it can be.
void layOutControls(const QSize& display, const DisplayTraits& traits, DisplayGeometry& geometry) {
    const auto length = [&](int pixels) { return controlLength(pixels, display.width()); };
    const int spare = display.width() - length(ReferenceWidth);
    const int left = traits.timed ? 0 : spare / 2;
    const int right = traits.timed ? spare : left;
    const auto place = [&](int x, int y, int width, int height) {
        const bool mirrored = traits.face == Orientation::Mirrored;
        return QRect(mirrored ? display.width() - x - width : x,
                     display.height() - length(ReferenceHeight - y), width, length(height));
    };
    const auto placeFrom = [&](int edge, int x, int y, int width, int height) {
        return place(edge + length(x), y, length(width), height);
    };
    geometry.directionMark = placeFrom(left, 25, 445, 39, 33);
    geometry.Picture6 = placeFrom(left, 74, 445, 347, 34);
    geometry.Command1 = placeFrom(left, 25, 445, 78, 33);
    geometry.Hscroll1 = place(left + length(112), 453, right - left + length(190), 17);
    geometry.Label2 = placeFrom(right, 318, 446, 100, 15);
    geometry.Label3 = placeFrom(right, 318, 461, 65, 16);
    geometry.Label6 = placeFrom(right, 433, 446, 65, 15);
    geometry.Label5 = placeFrom(right, 433, 463, 65, 15);
    geometry.Label1 = placeFrom(right, 500, 445, 65, 16);
    geometry.Label4 = placeFrom(right, 500, 462, 65, 16);
    geometry.Vscroll2 = placeFrom(0, 0, 445, 18, 32);
    geometry.Command3 = placeFrom(display.width() - length(68), 0, 445, 68, 33);
    geometry.controlUnit = length(ReferenceWidth) / static_cast<double>(ReferenceWidth);
}

/// The arrow's strip stands where the lines begin for the reader, the scroll bar at their other
/// end.
void layOutBeside(int displayWidth, const DisplayTraits& traits, DisplayGeometry& geometry) {
    const QRect& picture = geometry.Picture1;
    const int strip = arrowStripWidth(displayWidth);
    const int bar = scrollBarWidth(displayWidth);
    const bool mirrored = traits.face == Orientation::Mirrored;
    const int behind = picture.right() + 1;
    geometry.Picture3 =
        QRect(mirrored ? behind : picture.left() - strip, picture.top(), strip, picture.height());
    geometry.Vscroll1 =
        QRect(mirrored ? picture.left() - bar : behind, picture.top(), bar, picture.height());
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

/// The arrow beside the speaker's picture is that of the smaller display: it is never larger beside
/// a text than the operator's.
int speakerStripWidth(int speakerWidth, int operatorWidth) {
    return arrowStripWidth(std::min(speakerWidth, operatorWidth));
}

/// The text window on display 1, so that display 2 can show the same rows.
QRect sharedPicture(const QRect& alone, const GeometryInput& input) {
    const QSize second = input.secondDisplay;
    QRect picture = alone;
    const int higherBy = input.screenHeight - second.height();
    const int row = controlLength(ControlRowHeight, input.screenWidth);
    if (higherBy > 0) {
        picture.setHeight(std::max(TextMargins + 1, picture.height() - higherBy));
        picture.moveTop(higherBy / 2);
        if (higherBy >= row) {
            picture.setHeight(picture.height() + row);
            picture.moveTop(std::max(0, picture.top() - row / 2));
        }
    }
    if (input.screenWidth - second.width() >= WiderBy) {
        const int strip = speakerStripWidth(second.width(), input.screenWidth);
        const int room = second.width() - strip - picture.width();
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
    const int row = controlLength(ControlRowHeight, input.screenWidth);
    QRect picture(geometry.SideMargin + arrowStripWidth(input.screenWidth), 0, std::max(1, width),
                  std::max(TextMargins + 1, input.screenHeight - row));
    if (!input.secondDisplay.isEmpty()) {
        picture = sharedPicture(picture, input);
    }
    // Full screen hides the scroll bar.
    if (input.FullScreenMode == 1) {
        picture.translate(FullScreenShiftX, FullScreenShiftY);
    }
    if (input.traits.face == Orientation::Mirrored) {
        picture.moveLeft(input.screenWidth - picture.left() - picture.width());
    }
    geometry.Picture1 = picture;
    geometry.homeWidth = input.screenWidth;
    layOutBeside(input.screenWidth, input.traits, geometry);
    if (!input.secondDisplay.isEmpty()) {
        layOutSpeaker(input.secondDisplay, geometry);
    }
    return geometry;
}

int arrowStripWidth(int displayWidth) {
    return controlLength(ArrowStripWidth, displayWidth);
}

int scrollBarWidth(int displayWidth) {
    return controlLength(ScrollBarWidth, displayWidth);
}

void layOutSpeaker(const QSize& display, DisplayGeometry& geometry) {
    const int strip = speakerStripWidth(display.width(), geometry.homeWidth);
    const QRect room(0, 0, display.width() - strip, display.height());
    QRect picture = fitted(QRect(QPoint(0, 0), geometry.Picture1.size()), room);
    picture.moveTo((room.width() - picture.width()) / 2, (room.height() - picture.height()) / 2);
    geometry.speakerPicture1 = picture;
    geometry.speakerShare = static_cast<double>(picture.width()) / geometry.WindowWidth();
    geometry.speakerPicture3 = QRect(picture.right() + 1, picture.top(), strip, picture.height());
}

void moveToDisplay(const QSize& display, const DisplayTraits& traits, DisplayGeometry& geometry) {
    const int strip = arrowStripWidth(display.width());
    const int bar = scrollBarWidth(display.width());
    const int left = traits.face == Orientation::Mirrored ? bar : strip;
    const QRect room(left, 0, display.width() - strip - bar,
                     display.height() - controlLength(ControlRowHeight, display.width()));
    const QRect picture = fitted(geometry.Picture1, room);
    geometry.share = static_cast<double>(picture.width()) / geometry.WindowWidth();
    geometry.Picture1 = picture;
    layOutControls(display, traits, geometry);
    layOutBeside(display.width(), traits, geometry);
}

} // namespace velmora
