#include "widgets/push_button.h"

#include "core/session.h"

namespace velmora {

namespace {
constexpr int FewColoursDepth = 8;
} // namespace

CB::CB(const QString& name, const QString& caption, QWidget* parent)
    : QPushButton(caption, parent) {
    setObjectName(name);
    setAutoDefault(true);
}

void usePlainButtonsOnFewColours(QWidget& window, const ScreenState& screen) {
    if (screen.ColorDepth > FewColoursDepth) {
        return;
    }
    const auto buttons = window.findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        button->setFlat(true);
    }
}

} // namespace velmora
