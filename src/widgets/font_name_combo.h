#pragma once

#include <QComboBox>

namespace velmora {

/// A list of font names. It knows its current name alone until it is filled: asking the system for
/// all its fonts would be a good part of the program's start.
class FontNameCombo final : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;

    /// Shows a name, also one that the system does not have.
    void showName(const QString& name);
    /// Lists the system's fonts, once. Opening the list does this too; a list that the keyboard
    /// walks through unopened needs it before.
    void fill();
    void showPopup() override;

private:
    bool m_filled = false;
};

} // namespace velmora
