#include "widgets/font_size_combo.h"

namespace velmora {

namespace {
constexpr int SmallestSize = 8;
constexpr int LargestSize = 48;
} // namespace

FontSizeCombo::FontSizeCombo(QWidget* parent) : ListCombo(parent) {
    for (int points = SmallestSize; points <= LargestSize; ++points) {
        addItem(QString::number(points));
    }
}

void FontSizeCombo::showSize(int points) {
    const QString size = QString::number(points);
    if (findText(size) < 0) {
        addItem(size);
    }
    setCurrentIndex(findText(size));
}

} // namespace velmora
