#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QDialog>

class QGridLayout;
class QPlainTextEdit;
class QSlider;
class QVBoxLayout;

namespace velmora {

class FontNameCombo;
class FontSizeCombo;
class Session;
struct SwatchRow;

/// Form12: the default look of the next script, with a live sample. Modal; opened by Form8. Nothing
/// is stored but by Save, and the script now open is not changed.
///
/// The sample is the editor's column at a smaller scale, so that it breaks its lines about as the
/// editor does. A choice made by mouse gives it the focus; one made by keyboard leaves the focus
/// where it is, for the next choice.
class Form12 final : public QDialog {
    Q_OBJECT
public:
    Form12(Session& session, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Form_Load();
    void Combo1_Click();
    void Combo2_Click();
    void Hscroll1_Change();
    void Save_Click();
    void ExitButton_Click();

    void addSample(QVBoxLayout& column);
    void addSwatches(QGridLayout& grid, const SwatchRow& row, Rgb24& colour);
    void addFontChoice(QGridLayout& grid);
    void addButtons(QVBoxLayout& column);
    void placeOnDisplay1();
    void showColours();
    void showFont();
    void returnToSample();

    Session& m_session;
    /// Of Text1.
    Rgb24 m_backColor = Black;
    Rgb24 m_foreColor = White;
    QPlainTextEdit* Text1 = nullptr;
    FontNameCombo* Combo1 = nullptr;
    FontSizeCombo* Combo2 = nullptr;
    QSlider* Hscroll1 = nullptr;
};

} // namespace velmora
