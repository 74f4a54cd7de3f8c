#pragma once

#include <QRect>

namespace velmora {

class Session;
struct DisplayState;

/// Fills DisplayLeft, DisplayTop, DisplayWidth and DisplayHeight with the rectangle of display 1 or
/// 2, in pixels: the command line's when it gave them, else the n-th monitor's. A display 2 that
/// does not exist leaves all four 0; a display 1 that does not exist leaves them as they are.
void GetDisplayRect(Session& session, int n);

/// The rectangle that the last GetDisplayRect gave, in pixels.
[[nodiscard]] QRect displayRect(const DisplayState& displays);

/// Whether the last GetDisplayRect found its display.
[[nodiscard]] bool displayFound(const Session& session);

} // namespace velmora
