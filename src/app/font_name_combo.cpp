#include "app/font_name_combo.h"

#include <QFontDatabase>

namespace velmora {

void FontNameCombo::showName(const QString& name) {
    if (findText(name) < 0) {
        addItem(name);
    }
    setCurrentIndex(findText(name));
}

void FontNameCombo::showPopup() {
    if (!m_filled) {
        m_filled = true;
        const QString shown = currentText();
        clear();
        const QStringList families = QFontDatabase::families();
        for (const QString& family : families) {
            if (!QFontDatabase::isPrivateFamily(family)) {
                addItem(family);
            }
        }
        showName(shown);
    }
    QComboBox::showPopup();
}

} // namespace velmora
