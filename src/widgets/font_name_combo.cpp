#include "widgets/font_name_combo.h"

#include <QFontDatabase>

namespace velmora {

void FontNameCombo::showName(const QString& name) {
    if (findText(name) < 0) {
        addItem(name);
    }
    setCurrentIndex(findText(name));
}

void FontNameCombo::fill() {
    if (m_filled) {
        return;
    }
    m_filled = true;
    const QString shown = currentText();
    clear();
    const QStringList families = QFontDatabase::families();
    for (const QString& family : families) {
        if (!QFontDatabase::isPrivateFamily(family)) {
            addItem(family);
        }
    }
    if (!shown.isEmpty()) {
        showName(shown);
    }
}

void FontNameCombo::showPopup() {
    fill();
    ListCombo::showPopup();
}

void FontNameCombo::keyPressEvent(QKeyEvent* event) {
    fill();
    ListCombo::keyPressEvent(event);
}

} // namespace velmora
