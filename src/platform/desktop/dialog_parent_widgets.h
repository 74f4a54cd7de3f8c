#pragma once

class QWidget;

namespace velmora {

/// The window over which a dialog opens: the active one, or where none is (another dialog has just
/// closed) the first that is visible. Null when the program shows no window.
[[nodiscard]] QWidget* dialogParent();

} // namespace velmora
