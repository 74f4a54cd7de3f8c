#pragma once

class QRect;
class QWidget;

namespace velmora {

/// Shows a window so that it fills a display, in real pixels: on a screen of exactly this
/// rectangle as a full-screen window, which panels do not cover; elsewhere above the others.
void fillDisplay(QWidget& window, const QRect& display);

} // namespace velmora
