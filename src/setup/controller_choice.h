#pragma once

#include <QDialog>

#include <array>

namespace velmora {

class Session;
class ShuttlePage;
class TwoButtonPage;

/// Form3: which speed controller is in use, and what the shuttle's five buttons do. Modal; opened
/// by Form8. The buttons only store a ControllerType; the window's wait sees it and closes. While
/// the window is open ControllerType is 0.
class Form3 final : public QDialog {
    Q_OBJECT
public:
    Form3(Session& session, QWidget* parent);

    /// Opens the window and returns when a controller has been chosen or the window left; then
    /// ControllerType is as it was before.
    void choose();
    /// Escape and the frame's close button: leaves as ExitButton does.
    void reject() override;

    /// 1: leaving by Exit tells that the program has to be started anew. Set by nothing yet.
    int NeedsRestart = 0;

private:
    void ShuttleXpress_Click();
    void ExitButton_Click();

    [[nodiscard]] QWidget* makeChoicePage();
    [[nodiscard]] std::array<QWidget*, 3> pages() const;
    /// The modal wait of Form_Activate.
    void Form_Activate();
    void showChoice();
    /// Shows one page alone; the window takes its size and keeps its middle.
    void showPage(QWidget* page);

    Session& m_session;
    QWidget* m_choicePage;
    ShuttlePage* Picture3;
    TwoButtonPage* m_twoButtonPage;
    bool m_finished = false;
};

} // namespace velmora
