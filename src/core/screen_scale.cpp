#include "core/screen_scale.h"

#include "core/display_rects.h"
#include "core/number_format.h"
#include "core/session.h"
#include "platform/desktop/monitors.h"

#include <QSize>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double ReferenceWidth = 640;
constexpr double ReferenceHeight = 480;
/// Left and right inset of the text in its column, in unzoomed pixels.
constexpr double ColumnInset = 16;
/// The display up to which the controls of a show keep their size.
constexpr double ControlWidth = 1920;

} // namespace

double scaleXFor(double pixelsWide) {
    return pixelsWide / ReferenceWidth;
}

double scaleYFor(double pixelsHigh) {
    return pixelsHigh / ReferenceHeight + (pixelsHigh - ReferenceHeight) / ReferenceHeight / 10;
}

void measureScreen(Session& session) {
    const Monitors& monitors = session.platform.monitors;
    ScreenState& screen = session.screen;
    GetDisplayRect(session, 1);
    const QSize display = displayRect(session.displays).size();
    const QSize size = display.isEmpty() ? monitors.primarySize() : display;
    screen.ScreenPixelsWide = size.width();
    screen.ScreenPixelsHigh = size.height();
    screen.ScaleX = scaleXFor(screen.ScreenPixelsWide);
    screen.ScaleY = scaleYFor(screen.ScreenPixelsHigh);
    screen.ColorDepth = monitors.colorDepth();
    screen.HighColorDisplay = screen.ColorDepth > 8 ? 1 : 0;
}

int controlLength(int pixels, int displayWidth) {
    return static_cast<int>(std::lround(pixels * std::max(1.0, displayWidth / ControlWidth)));
}

double columnScale(const ScreenState& screen, int windowWidth) {
    return screen.ScaleX * std::min(1.0, windowWidth / screen.ScreenPixelsWide);
}

double editorZoom(double scale) {
    return static_cast<double>(roundHalfEven(scale * 20)) / 10;
}

double wrapWidthForMargin(int columnMargin) {
    // The editor shows everything at twice ScaleX: hence the half.
    return (ReferenceWidth - columnMargin) / 2 - ColumnInset;
}

int marginForWrapWidth(double wrapWidth) {
    return static_cast<int>(std::floor(ReferenceWidth - 2 * (wrapWidth + ColumnInset)));
}

} // namespace velmora
