#include "app/main_window_layout.h"

#include "app/look.h"
#include "core/screen_scale.h"
#include "core/session.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double ReferenceWidth = 640;

/// Sizes in units of controlUnit().
constexpr double Padding = 6;
constexpr double GroupGap = 12;
constexpr double ButtonWidth = 76;
constexpr double ButtonHeight = 32;
constexpr double FontNameWidth = 200;
constexpr double FontSizeWidth = 66;
constexpr double StartWidth = 150;
constexpr double CaptionWidth = 184;
constexpr double LimitWidth = 36;
constexpr double NoticeHeight = 22;
/// Of the window's width, for the slider.
constexpr double SliderShare = 0.28;

/// Puts rectangles of one height against each other along a row.
class Row final {
public:
    Row(int left, int top, int height) : m_left(left), m_top(top), m_height(height) {}

    QRect add(int width) {
        const QRect place(m_left, m_top, width, m_height);
        m_left += width;
        return place;
    }
    void skip(int width) { m_left += width; }

private:
    int m_left;
    int m_top;
    int m_height;
};

class Units final {
public:
    explicit Units(const ScreenState& screen) : m_unit(controlUnit(screen)) {}
    [[nodiscard]] int px(double units) const {
        return static_cast<int>(std::lround(units * m_unit));
    }

private:
    double m_unit;
};

void layOutToolbar(MainWindowLayout& layout, const Units& units, QSize client) {
    const int padding = units.px(Padding);
    const int height = units.px(ButtonHeight);
    const int button = units.px(ButtonWidth);
    layout.Backpicture = QRect(0, 0, client.width(), height + 2 * padding);
    Row row(padding, padding, height);
    layout.LoadText = row.add(button);
    row.skip(padding);
    layout.SaveText = row.add(button);
    row.skip(units.px(GroupGap));
    layout.Combo1 = row.add(units.px(FontNameWidth));
    row.skip(padding);
    layout.Combo2 = row.add(units.px(FontSizeWidth));
    Row right(client.width() - 2 * (padding + button), padding, height);
    layout.SetupButton = right.add(button);
    right.skip(padding);
    layout.ExitButton = right.add(button);
}

void layOutBottom(MainWindowLayout& layout, const Units& units, QSize client) {
    const int padding = units.px(Padding);
    const int height = units.px(ButtonHeight);
    const int notice = units.px(NoticeHeight);
    const int stripHeight = 2 * padding + height + notice;
    const int top = client.height() - stripHeight;
    layout.bottomStrip = QRect(0, top, client.width(), stripHeight);
    Row row(units.px(GroupGap), top + padding, height);
    layout.Label2 = row.add(units.px(CaptionWidth));
    // The slider tells what the column gives up: at its beginning the column is widest.
    layout.Label5 = row.add(units.px(LimitWidth));
    layout.Hscroll1 = row.add(static_cast<int>(SliderShare * client.width()));
    row.skip(padding);
    layout.Label4 = row.add(units.px(LimitWidth));
    const int start = units.px(StartWidth);
    layout.StartButton = QRect(client.width() - padding - start, top + padding, start, height);
    layout.noticeLine = QRect(units.px(GroupGap), top + padding + height + padding / 2,
                              client.width() - 2 * units.px(GroupGap), notice);
}

} // namespace

MainWindowLayout layoutMainWindow(const ScreenState& screen, QSize client) {
    const Units units(screen);
    MainWindowLayout layout;
    layOutToolbar(layout, units, client);
    layOutBottom(layout, units, client);
    layout.editorTop = layout.Backpicture.bottom() + 1;
    layout.editorHeight = std::max(0, layout.bottomStrip.top() - layout.editorTop);
    return layout;
}

QRect textColumn(const MainWindowLayout& layout, const ScreenState& screen, int margin,
                 QSize client) {
    const double scale = columnScale(screen, client.width());
    const int left = static_cast<int>(std::floor(0.5 * scale * margin));
    const int width = static_cast<int>(std::floor(scale * ReferenceWidth - scale * margin));
    return {left, layout.editorTop, std::max(0, std::min(width, client.width() - left)),
            layout.editorHeight};
}

} // namespace velmora
