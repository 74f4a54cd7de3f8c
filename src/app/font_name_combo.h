#pragma once

#include <QComboBox>

namespace velmora {

/// Combo1: the list of font names. It knows its current name alone until it is opened for the first
/// time: asking the system for all its fonts would be a good part of the program's start.
class FontNameCombo final : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;

    /// Shows a name, also one that the system does not have.
    void showName(const QString& name);
    void showPopup() override;

private:
    bool m_filled = false;
};

} // namespace velmora
