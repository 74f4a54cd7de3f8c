#include "widgets/list_combo.h"

#include <QKeyEvent>

#include <utility>

namespace velmora {

void ListCombo::showPopup() {
    m_open = true;
    QComboBox::showPopup();
}

void ListCombo::hidePopup() {
    QComboBox::hidePopup();
    // Called too when the window goes.
    if (std::exchange(m_open, false)) {
        Q_EMIT closed();
    }
}

void ListCombo::keyPressEvent(QKeyEvent* event) {
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((event->modifiers() & commands) != Qt::NoModifier && !event->text().isEmpty()) {
        event->ignore();
        return;
    }
    QComboBox::keyPressEvent(event);
}

} // namespace velmora
