#pragma once

#include <QDialog>

namespace velmora {

class Session;

/// Form17: the question whether to save before leaving. Modal; opened by Form1's unload, which
/// reads the answer from ExitAnswer: 6 Yes, 7 No, 2 Cancel. Escape and the frame's close button are
/// Cancel.
class Form17 final : public QDialog {
    Q_OBJECT
public:
    Form17(Session& session, QWidget* parent);

    /// Opens the window and returns when it has been answered.
    void ask();
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Yes_Click();
    void No_Click();
    void Cancel_Click();
    void answer(int exitAnswer);

    Session& m_session;
};

} // namespace velmora
