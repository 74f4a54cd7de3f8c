#pragma once

#include <QComboBox>

namespace velmora {

/// A list of font sizes in points, 8 to 48.
class FontSizeCombo final : public QComboBox {
    Q_OBJECT
public:
    explicit FontSizeCombo(QWidget* parent);

    /// Shows a size, also one that is not offered.
    void showSize(int points);
};

} // namespace velmora
