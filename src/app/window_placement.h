#pragma once

class QRect;
class QWidget;

namespace velmora {

/// Puts a window that is not shown yet on a display: maximised where the rectangle is a whole
/// screen of the desktop, else at the rectangle, frame included. Does nothing with an empty
/// rectangle.
void placeWindow(QWidget& window, const QRect& display);

} // namespace velmora
