#pragma once

#include "widgets/list_combo.h"

namespace velmora {

/// A list of font names. It knows its current name alone until it is filled: asking the system for
/// all its fonts would be a good part of the program's start.
class FontNameCombo final : public ListCombo {
    Q_OBJECT
public:
    using ListCombo::ListCombo;

    /// Shows a name, also one that the system does not have.
    void showName(const QString& name);
    /// Lists the system's fonts, once. Opening the list does this too, and so does a key, which
    /// may walk through the list unopened.
    void fill();
    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_filled = false;
};

} // namespace velmora
