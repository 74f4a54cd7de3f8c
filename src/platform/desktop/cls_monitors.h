#pragma once

#include "platform/desktop/monitors.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace velmora {

/// clsMonitor: a display of the desktop. Pixels, in the desktop's coordinates; Right and Bottom lie
/// just outside. The Work values leave out what the desktop's panels cover.
class clsMonitor final {
public:
    /// Stays the same as long as the display stands where it stands; 0 where the desktop tells no
    /// displays at all.
    int Handle = 0;
    int Height = 0;
    int Width = 0;
    int Left = 0;
    int Right = 0;
    int Top = 0;
    int Bottom = 0;
    int WorkLeft = 0;
    int WorkRight = 0;
    int WorkTop = 0;
    int WorkBottom = 0;
};

/// clsMonitors: the displays of the desktop as they were at the last Refresh, in the order of
/// reading. Never empty: where the desktop tells none there is one of the primary screen's size.
class clsMonitors final {
public:
    /// What GetMonitorFrom... answer for a place that is on no display.
    enum class Default { None, Primary, Nearest };

    explicit clsMonitors(const velmora::Monitors& desktop);

    [[nodiscard]] const std::vector<clsMonitor>& Monitors() const { return m_monitors; }
    /// The rectangle around all displays.
    [[nodiscard]] int DesktopLeft() const { return m_desktopArea.left(); }
    [[nodiscard]] int DesktopTop() const { return m_desktopArea.top(); }
    [[nodiscard]] int DesktopWidth() const { return m_desktopArea.width(); }
    [[nodiscard]] int DesktopHeight() const { return m_desktopArea.height(); }

    /// Handle of the display that shows most of a window, 0 for none.
    [[nodiscard]] int GetMonitorFromWindow(const QRect& window, Default otherwise) const;
    /// Handle of the display that a pixel is on, 0 for none.
    [[nodiscard]] int GetMonitorFromXYPoint(int x, int y, Default otherwise) const;
    /// Where the top left corner of a window goes that is to stand in the middle of a display: that
    /// of the reference window, else that of the desktop's first corner. The size counts within the
    /// work area, the place from the full display.
    [[nodiscard]] QPoint CenterFormOnMonitor(QSize FormToCenter,
                                             const std::optional<QRect>& ReferenceForm = {}) const;
    /// Asks the desktop again.
    void Refresh();

private:
    [[nodiscard]] const clsMonitor* find(int handle) const;
    [[nodiscard]] int nearest(const QRect& area) const;

    const velmora::Monitors& m_desktop;
    std::vector<clsMonitor> m_monitors;
    QRect m_desktopArea;
    int m_primary = 0;
};

} // namespace velmora
