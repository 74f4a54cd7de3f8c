#include "platform/desktop/screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <tuple>

namespace velmora {

namespace {

constexpr int RowPixels = 480;
constexpr double FallbackRefreshRate = 60;

QRect realPixels(const QScreen& screen, const QRect& logical) {
    return {logical.topLeft(), logical.size() * screen.devicePixelRatio()};
}

QRect realPixels(const QScreen& screen) {
    return realPixels(screen, screen.geometry());
}

} // namespace

std::vector<QRect> inReadingOrder(std::vector<QRect> displays) {
    if (displays.empty()) {
        return displays;
    }
    const auto topmost = [](const QRect& a, const QRect& b) { return a.top() < b.top(); };
    const int desktopTop = std::min_element(displays.begin(), displays.end(), topmost)->top();
    // The row is that of the first point at half a row's height that the display can hold.
    const auto key = [desktopTop](const QRect& display) {
        const int row = (display.top() - desktopTop + RowPixels / 2 - 1) / RowPixels;
        return std::make_tuple(row, display.left(), display.top(), display.width(),
                               display.height());
    };
    std::sort(displays.begin(), displays.end(),
              [&key](const QRect& a, const QRect& b) { return key(a) < key(b); });
    displays.erase(std::unique(displays.begin(), displays.end()), displays.end());
    return displays;
}

QScreen* screenAt(const QRect& geometry) {
    const auto screens = QGuiApplication::screens();
    const auto found =
        std::find_if(screens.cbegin(), screens.cend(), [&geometry](const QScreen* screen) {
            return realPixels(*screen) == geometry;
        });
    return found == screens.cend() ? nullptr : *found;
}

QString nameOfScreenAt(const QRect& geometry) {
    const QScreen* screen = screenAt(geometry);
    return screen == nullptr ? QString() : screen->name();
}

std::vector<NamedScreen> namedScreens() {
    std::vector<NamedScreen> result;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        result.push_back({screen->name(), realPixels(*screen)});
    }
    return result;
}

std::vector<QRect> Screens::displays() const {
    std::vector<QRect> rectangles;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        rectangles.push_back(realPixels(*screen));
    }
    return inReadingOrder(std::move(rectangles));
}

QRect Screens::workArea(const QRect& display) const {
    const QScreen* screen = screenAt(display);
    return screen == nullptr ? display : realPixels(*screen, screen->availableGeometry());
}

QRect Screens::primary() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? QRect() : realPixels(*screen);
}

QSize Screens::primarySize() const {
    const QRect screen = primary();
    return screen.isEmpty() ? QSize(640, 480) : screen.size();
}

int Screens::colorDepth() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? 32 : screen->depth();
}

double Screens::refreshRate(const QRect& display) const {
    const QScreen* exact = screenAt(display);
    const QScreen* screen = exact != nullptr ? exact : QGuiApplication::primaryScreen();
    // Virtual screens tell 0 or 1.
    return screen == nullptr || screen->refreshRate() < 2 ? FallbackRefreshRate
                                                          : screen->refreshRate();
}

} // namespace velmora
