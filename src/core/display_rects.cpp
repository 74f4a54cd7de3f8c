#include "core/display_rects.h"

#include "core/session.h"
#include "platform/desktop/cls_monitors.h"

namespace velmora {

namespace {

void fill(DisplayState& displays, int left, int top, int width, int height) {
    displays.DisplayLeft = left;
    displays.DisplayTop = top;
    displays.DisplayWidth = width;
    displays.DisplayHeight = height;
}

} // namespace

void GetDisplayRect(Session& session, int n) {
    DisplayState& d = session.displays;
    if (n != 1) {
        // Otherwise a missing second display would look like the one asked for before it.
        fill(d, 0, 0, 0, 0);
    }
    if (d.CmdDisplaysGiven == 1) {
        if (n == 1) {
            fill(d, d.CmdDisplay1Left, d.CmdDisplay1Top, d.CmdDisplay1Width, d.CmdDisplay1Height);
        } else {
            fill(d, d.CmdDisplay2Left, d.CmdDisplay2Top, d.CmdDisplay2Width, d.CmdDisplay2Height);
        }
        return;
    }
    const clsMonitors desktop(session.platform.monitors);
    const auto index = static_cast<std::size_t>(n - 1);
    if (n >= 1 && index < desktop.Monitors().size()) {
        const clsMonitor& monitor = desktop.Monitors()[index];
        fill(d, monitor.Left, monitor.Top, monitor.Width, monitor.Height);
    }
}

QRect displayRect(const DisplayState& displays) {
    return QRect(displays.DisplayLeft, displays.DisplayTop, displays.DisplayWidth,
                 displays.DisplayHeight);
}

bool displayFound(const Session& session) {
    return session.displays.DisplayWidth != 0 || session.displays.DisplayHeight != 0;
}

} // namespace velmora
