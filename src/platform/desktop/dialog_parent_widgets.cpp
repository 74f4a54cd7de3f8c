#include "platform/desktop/dialog_parent_widgets.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace velmora {

QWidget* dialogParent() {
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    const auto windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.cbegin(), windows.cend(), [](const QWidget* window) {
        // Neither tool tips nor pop-up lists.
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return shown == windows.cend() ? nullptr : *shown;
}

} // namespace velmora
