#pragma once

#include <QDialog>

namespace velmora {

class Session;

/// Form29: the palette that pops up beside the editor's colour button. It gives back one of 24
/// choices and does nothing else.
class Form29 final : public QDialog {
    Q_OBJECT
public:
    Form29(Session& session, QWidget* parent);

    /// Opens the window with its top left here, or as near as the display allows, and returns
    /// ColourChoice: 0 for none, 1 to 8 a screen colour (dark table), 9 to 16 a text colour (bright
    /// table), 17 to 24 a colour behind the text (dark table).
    int choose(const QPoint& topLeft);

private:
    void ExitButton_Click();

    int ColourChoice = 0;
};

} // namespace velmora
