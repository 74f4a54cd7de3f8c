#pragma once

#include <QWidget>

class QLabel;

namespace velmora {

/// Form31: a small frameless window with one label, in sight while a script is read or written.
/// Owned by the main window, which shows it for EditorHost::showProgress. Never takes the focus.
class Form31 final : public QWidget {
    Q_OBJECT
public:
    explicit Form31(QWidget* parent = nullptr);

    /// Shows the text in the middle of the parent, or of the screen, and paints it at once
    /// where it is on the screen already. Runs no handler: a window system that shows windows in
    /// its own time does so at the caller's next pump.
    void showText(const QString& text);

private:
    QLabel* Label1;
};

} // namespace velmora
