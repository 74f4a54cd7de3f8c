#pragma once

#include <QPushButton>

namespace velmora {

struct ScreenState;

/// CB: the push button of the dialog windows. Space and Enter press it when it has the focus.
class CB final : public QPushButton {
    Q_OBJECT
public:
    CB(const QString& name, const QString& caption, QWidget* parent);
};

/// On a screen of 256 colours or less the window's buttons take the plain style, which needs no
/// gradients. To be called once the buttons are made.
void usePlainButtonsOnFewColours(QWidget& window, const ScreenState& screen);

} // namespace velmora
