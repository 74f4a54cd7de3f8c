#pragma once

class QApplication;
class QString;

namespace velmora {

struct ScreenState;

/// Pixels of the screen for one unit of the main window's own controls, which are drawn for a
/// screen 1080 pixels high; never below three quarters, so that captions stay readable.
[[nodiscard]] double controlUnit(const ScreenState& screen);

/// The program's own look, the same on every desktop: Fusion, dark and neutral, with a font in
/// real pixels. Bright colours are left to the script and to what needs attention.
void applyLook(QApplication& application, const ScreenState& screen);

/// Style sheet of the main window and of the dialogs that it opens.
[[nodiscard]] QString mainWindowStyle(const ScreenState& screen);

} // namespace velmora
