#include "platform/desktop/cls_monitors.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

/// Displays with one rectangle are one display, so the rectangle tells them apart. Above 0.
int handleOf(const QRect& area) {
    constexpr std::size_t Seed = 0;
    const std::size_t hash = qHashMulti(Seed, area.left(), area.top(), area.width(), area.height());
    return static_cast<int>(hash % std::numeric_limits<int>::max()) + 1;
}

clsMonitor recordOf(int handle, const QRect& area, const QRect& work) {
    clsMonitor record;
    record.Handle = handle;
    record.Height = area.height();
    record.Width = area.width();
    record.Left = area.left();
    record.Right = area.left() + area.width();
    record.Top = area.top();
    record.Bottom = area.top() + area.height();
    record.WorkLeft = work.left();
    record.WorkRight = work.left() + work.width();
    record.WorkTop = work.top();
    record.WorkBottom = work.top() + work.height();
    return record;
}

QRect areaOf(const clsMonitor& monitor) {
    return {monitor.Left, monitor.Top, monitor.Width, monitor.Height};
}

qint64 sharedPixels(const QRect& a, const QRect& b) {
    const QRect shared = a.intersected(b);
    return qint64{shared.width()} * shared.height();
}

qint64 squaredDistance(const QRect& a, const QRect& b) {
    const qint64 x = std::max({0, a.left() - b.right(), b.left() - a.right()});
    const qint64 y = std::max({0, a.top() - b.bottom(), b.top() - a.bottom()});
    return x * x + y * y;
}

} // namespace

clsMonitors::clsMonitors(const velmora::Monitors& desktop) : m_desktop(desktop) {
    Refresh();
}

void clsMonitors::Refresh() {
    m_monitors.clear();
    m_desktopArea = QRect();
    for (const QRect& area : m_desktop.displays()) {
        m_monitors.push_back(recordOf(handleOf(area), area, m_desktop.workArea(area)));
        m_desktopArea = m_desktopArea.united(area);
    }
    m_primary = 0;
    if (m_monitors.empty()) {
        m_desktopArea = QRect(QPoint(0, 0), m_desktop.primarySize());
        m_monitors.push_back(recordOf(0, m_desktopArea, m_desktopArea));
        return;
    }
    const int primary = handleOf(m_desktop.primary());
    m_primary = find(primary) != nullptr ? primary : m_monitors.front().Handle;
}

int clsMonitors::GetMonitorFromWindow(const QRect& window, Default otherwise) const {
    const auto most = std::max_element(
        m_monitors.begin(), m_monitors.end(), [&window](const clsMonitor& a, const clsMonitor& b) {
            return sharedPixels(areaOf(a), window) < sharedPixels(areaOf(b), window);
        });
    if (sharedPixels(areaOf(*most), window) > 0) {
        return most->Handle;
    }
    switch (otherwise) {
    case Default::Primary:
        return m_primary;
    case Default::Nearest:
        return nearest(window);
    case Default::None:
        break;
    }
    return 0;
}

int clsMonitors::GetMonitorFromXYPoint(int x, int y, Default otherwise) const {
    return GetMonitorFromWindow(QRect(x, y, 1, 1), otherwise);
}

QPoint clsMonitors::CenterFormOnMonitor(QSize FormToCenter,
                                        const std::optional<QRect>& ReferenceForm) const {
    const int handle = ReferenceForm ? GetMonitorFromWindow(*ReferenceForm, Default::Primary)
                                     : GetMonitorFromXYPoint(1, 1, Default::Primary);
    const clsMonitor* monitor = find(handle);
    if (monitor == nullptr) {
        const QSize left = m_desktop.primarySize() - FormToCenter;
        return {left.width() / 2, left.height() / 2};
    }
    return {(monitor->WorkRight - monitor->WorkLeft - FormToCenter.width()) / 2 + monitor->Left,
            (monitor->WorkBottom - monitor->WorkTop - FormToCenter.height()) / 2 + monitor->Top};
}

const clsMonitor* clsMonitors::find(int handle) const {
    const auto found =
        std::find_if(m_monitors.begin(), m_monitors.end(),
                     [handle](const clsMonitor& monitor) { return monitor.Handle == handle; });
    return found == m_monitors.end() ? nullptr : &*found;
}

int clsMonitors::nearest(const QRect& area) const {
    return std::min_element(m_monitors.begin(), m_monitors.end(),
                            [&area](const clsMonitor& a, const clsMonitor& b) {
                                return squaredDistance(areaOf(a), area) <
                                       squaredDistance(areaOf(b), area);
                            })
        ->Handle;
}

} // namespace velmora
