#pragma once

#include "widgets/list_combo.h"

namespace velmora {

/// A list of font sizes in points, 8 to 48.
class FontSizeCombo final : public ListCombo {
    Q_OBJECT
public:
    explicit FontSizeCombo(QWidget* parent);

    /// Shows a size, also one that is not offered.
    void showSize(int points);
};

} // namespace velmora
