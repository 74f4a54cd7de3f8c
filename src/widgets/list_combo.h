#pragma once

#include <QComboBox>

namespace velmora {

/// A box with a list that tells when the list closes, with or without a choice. Letters with
/// Control, Alt or Meta are commands and go on to the window; alone they search the list.
class ListCombo : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_open = false;
};

} // namespace velmora
