#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

namespace velmora {

/// Form31: a small frameless window with one label, in sight while a script is read or written.
/// Owned by the main window, which shows it for EditorHost::showProgress. Does not take the focus,
/// until work takes so long that it has something to cancel.
class Form31 final : public QWidget {
    Q_OBJECT
public:
    explicit Form31(QWidget* parent = nullptr);

    /// Shows the text in the middle of the parent, or of the screen, and paints it at once
    /// where it is on the screen already. Runs no handler: a window system that shows windows in
    /// its own time does so at the caller's next pump.
    void showText(const QString& text);

    /// Shows how much is done, 0 to 1, beneath the text. With the first call a button to cancel
    /// comes too, Escape does as it, and the other windows of the program take no input.
    void showShare(double share);
    [[nodiscard]] bool isCancelled() const { return m_cancelled; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void becomeDialog();
    void showInTheMiddle();

    QLabel* Label1;
    QProgressBar* m_bar = nullptr;
    bool m_cancelled = false;
};

} // namespace velmora
