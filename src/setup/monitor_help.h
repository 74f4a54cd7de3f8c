#pragma once

#include <QDialog>

class QCheckBox;

namespace velmora {

class Session;

/// Form11: explains at start how one display, a mirrored one and two displays are used. Modal;
/// opened by Form1's load step unless IgnoreMonitorHelp is 1.
class Form11 final : public QDialog {
    Q_OBJECT
public:
    Form11(Session& session, QWidget* parent);

    /// Opens the window and returns when MonitorHelpClosed is 1.
    void showHelp();
    /// Escape and the frame's close button: closes without looking at Check1.
    void reject() override;

private:
    void OK_Click();
    void closeHelp();

    Session& m_session;
    QCheckBox* Check1;
};

} // namespace velmora
