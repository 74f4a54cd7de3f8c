#pragma once

#include "setup/display_option_tables.h"
#include "widgets/setting_rows.h"

#include <QDialog>

#include <vector>

namespace velmora {

class Session;

/// Form8: the display options, the one window in which the user sets up how a show will run. Modal;
/// opened by Form1. A row for each setting; a press changes the setting at once, so there is no
/// Cancel.
class Form8 final : public QDialog {
    Q_OBJECT
public:
    Form8(Session& session, QWidget* parent);

    /// Every way out: sets DialogClosing and closes.
    void reject() override;

private:
    struct Row;
    static const std::vector<Row>& rows();

    void SetDisplayDefaults_Click();
    void SetLineSpacing1_Click();
    void SetLineSpacing2_Click();
    void ConfigureController_Click();
    void CCSetup_Click();
    void DelayLess_Click();
    void DelayMore_Click();
    void ExitButton_Click();

    [[nodiscard]] QString lineSpacing();
    [[nodiscard]] QString controller();
    [[nodiscard]] QString captionPort();
    [[nodiscard]] QString delay();

    void Form_Load();
    void addRow(SettingRows& grid, const Row& row);
    void writeValues();
    void moveLineSpacing(int steps);

    /// A value label and what it says.
    struct Value final {
        SettingRow row;
        QString (Form8::*text)();
    };

    Session& m_session;
    std::vector<Value> m_values;
};

} // namespace velmora
