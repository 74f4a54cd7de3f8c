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

int sideMargin(const GeometryInput& input) {
    const double textWidth = input.wrapWidth * input.FontScale;
    const double spare = freeWidth(input.screenWidth) - textWidth - TextGap;
    return static_cast<int>(std::max(0.0, std::floor(spare / 2)));
}

} // namespace

int DisplayGeometry::textRows() const {
    return std::max(1, Picture1.height() - TextMargins);
}

DisplayGeometry layOutDisplay(const GeometryInput& input) {
    DisplayGeometry geometry;
    const int baseX = (input.screenWidth - ReferenceWidth) / 2;
    const int baseY = input.screenHeight - ReferenceHeight;
    const auto control = [&](int x, int y, int width, int height) {
        return QRect(baseX + x, baseY + y, width, height);
    };
    geometry.directionMark = control(25, 445, 39, 33);
    geometry.Picture6 = control(74, 445, 347, 34);
    geometry.Label6 = control(433, 446, 65, 15);
    geometry.Label5 = control(433, 463, 65, 15);
    geometry.Label1 = control(500, 445, 65, 16);
    geometry.Label4 = control(500, 462, 65, 16);
    geometry.Vscroll2 = QRect(0, baseY + 445, 18, 32);
    geometry.Command3 = QRect(input.screenWidth - 68, baseY + 445, 68, 33);

    geometry.LineHeightFactor = input.screenHeight <= ReferenceHeight ? 1.68 : 2.05;
    geometry.SideMargin = sideMargin(input);
    const int width = static_cast<int>(freeWidth(input.screenWidth)) - 2 * geometry.SideMargin;
    QRect picture(geometry.SideMargin + ArrowStripWidth, 0, std::max(1, width),
                  std::max(TextMargins + 1, input.screenHeight - ControlRowHeight));
    geometry.Vscroll1 = QRect(picture.right() + 1, picture.top(), ScrollBarWidth, picture.height());
    if (input.FullScreenMode == 1) {
        picture.translate(FullScreenShiftX, FullScreenShiftY);
    }
    geometry.Picture1 = picture;
    geometry.Picture3 =
        QRect(picture.left() - ArrowStripWidth, picture.top(), ArrowStripWidth, picture.height());
    return geometry;
}

} // namespace velmora
