#pragma once

#include "core/settings.h"
#include "widgets/setting_rows.h"

#include <QDialog>

#include <vector>

class QLineEdit;
class QVBoxLayout;

namespace velmora {

class CB;
class Session;

/// Form30: the settings of the caption port. The program carries no captions yet and opens this
/// window from nowhere; the settings live in the settings file, and Form8 tells of them.
class Form30 final : public QDialog {
    Q_OBJECT
public:
    Form30(Session& session, QWidget* parent);

private:
    struct CodeRow;

    void Form_Load();
    void addHeading(QVBoxLayout& column);
    void addCyclingRows(SettingRows& grid);
    void addCodeRows(SettingRows& grid);
    void hideEdits();
    void openEdit(const CodeRow& row);
    void saveEdit(const CodeRow& row);
    void ExitButton_Click();

    Session& m_session;
    std::vector<CodeRow> m_codes;
};

/// A code's row: while the code is edited, its edit box and "Save" button are shown.
struct Form30::CodeRow final {
    QString Settings::*setting;
    SettingRow row;
    QLineEdit* text;
    CB* save;
};

} // namespace velmora
