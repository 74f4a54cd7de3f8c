#pragma once

#include "setup/display_option_tables.h"
#include "widgets/setting_rows.h"

#include <QDialog>

#include <functional>
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
    void addCycle(SettingRows& grid, const CyclingSetting& cycle);
    /// A value label and what it says.
    void addValue(const SettingRow& row, std::function<QString()> text);
    void writeValues();
    void moveLineSpacing(int steps);
    void advance(const CyclingSetting& cycle);

    struct Value final {
        SettingRow row;
        std::function<QString()> text;
    };

    Session& m_session;
    std::vector<Value> m_values;
};

} // namespace velmora
