#include "setup/editor_defaults.h"

#include "core/colour_tables.h"
#include "core/display_rects.h"
#include "core/number_format.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "widgets/colour_swatch.h"
#include "widgets/font_name_combo.h"
#include "widgets/font_size_combo.h"
#include "widgets/push_button.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

/// Of the editor's column.
constexpr double SampleScale = 0.45;
constexpr double ReferenceWidth = 640;
/// What the sample's height takes of the screen's.
constexpr double SampleHeightShare = 0.35;
/// The editor keeps so much free on each side of the text, in unzoomed pixels.
constexpr double SideMargin = 16;
constexpr double PixelsPerPoint = 96.0 / 72.0;
/// What the sample shows; a setting may hold anything.
constexpr int SmallestPoints = 1;
constexpr int LargestPoints = 200;

QString sampleText() {
    return QStringLiteral(
        "The quick brown fox jumped over the lazy dog.  Now is the time for all good men to come "
        "to the aid of their countries.  The quick brown fox jumped over the lazy dog.  Now is the "
        "time for all good men to come to the aid of their countries.");
}

QColor colorOf(Rgb24 colour) {
    const RgbParts parts = SplitRgb(colour);
    return {parts.red, parts.green, parts.blue};
}

} // namespace

Form12::Form12(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session),
      m_backColor(colourOfSetting(session.settings.ScreenBackColor)),
      m_foreColor(colourOfSetting(session.settings.ScreenTextColor)) {
    setObjectName(QStringLiteral("Form12"));
    setWindowTitle(QStringLiteral("Default Editor Settings"));
    Form_Load();
}

void Form12::Form_Load() {
    const int em = fontMetrics().height();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * em, em, 2 * em, em);
    column->setSpacing(em / 2);
    addSample(*column);
    column->addSpacing(em / 2);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(em);
    grid->setVerticalSpacing(em / 2);
    column->addLayout(grid);
    addSwatches(*grid, swatchRow(ScreenColours), m_backColor);
    addSwatches(*grid, swatchRow(TextColours), m_foreColor);
    addFontChoice(*grid);
    column->addSpacing(em / 2);
    addButtons(*column);
    column->setSizeConstraint(QLayout::SetFixedSize);
    usePlainButtonsOnFewColours(*this, m_session.screen);
    showColours();
    showFont();
    placeOnDisplay1();
}

void Form12::addSample(QVBoxLayout& column) {
    const ScreenState& screen = m_session.screen;
    Text1 = new QPlainTextEdit(sampleText(), this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Sample"));
    Text1->setFrameShape(QFrame::NoFrame);
    Text1->setTabChangesFocus(true);
    Text1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text1->setFixedHeight(static_cast<int>(SampleHeightShare * screen.ScreenPixelsHigh));
    Text1->document()->setDocumentMargin(SideMargin * SampleScale * editorZoom(screen.ScaleX));
    column.addWidget(Text1, 0, Qt::AlignHCenter);

    Hscroll1 = new QSlider(Qt::Horizontal, this);
    Hscroll1->setObjectName(QStringLiteral("Hscroll1"));
    Hscroll1->setAccessibleName(QStringLiteral("Editor / Prompter Width"));
    Hscroll1->setToolTip(Hscroll1->accessibleName());
    Hscroll1->setRange(MinColumnMargin, MaxColumnMargin);
    Hscroll1->setFocusPolicy(Qt::TabFocus);
    Hscroll1->setFixedWidth(static_cast<int>(
        std::lround(SampleScale * screen.ScaleX * (ReferenceWidth - MinColumnMargin))));
    column.addWidget(Hscroll1, 0, Qt::AlignHCenter);
    // The slider tells what the column gives up.
    auto* captions = new QHBoxLayout;
    column.addLayout(captions);
    captions->addWidget(new QLabel(QStringLiteral("Max"), this));
    captions->addStretch();
    captions->addWidget(new QLabel(Hscroll1->accessibleName(), this));
    captions->addStretch();
    captions->addWidget(new QLabel(QStringLiteral("Min"), this));
    connect(Hscroll1, &QSlider::valueChanged, this, &Form12::Hscroll1_Change);
}

void Form12::addSwatches(QGridLayout& grid, const SwatchRow& row, Rgb24& colour) {
    const int line = grid.rowCount();
    grid.addWidget(new QLabel(row.heading.toString(), this), line, 0);
    auto* swatches = new QHBoxLayout;
    swatches->setSpacing(fontMetrics().height() / 4);
    grid.addLayout(swatches, line, 1, Qt::AlignLeft);
    for (int number = 1; number <= ColourCount; ++number) {
        ColourSwatch* swatch = makeSwatch(row, number, this);
        swatch->setFocusPolicy(Qt::TabFocus);
        swatches->addWidget(swatch);
        const Rgb24 chosen = row.table->at(static_cast<std::size_t>(number - 1));
        connect(swatch, &ColourSwatch::clicked, this, [this, &colour, chosen] {
            colour = chosen;
            showColours();
            returnToSample();
        });
    }
}

void Form12::addFontChoice(QGridLayout& grid) {
    const Settings& settings = m_session.settings;
    const int line = grid.rowCount();
    grid.addWidget(new QLabel(QStringLiteral("Font"), this), line, 0);
    auto* choice = new QHBoxLayout;
    grid.addLayout(choice, line, 1);
    Combo1 = new FontNameCombo(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setAccessibleName(QStringLiteral("Font Name"));
    Combo1->fill();
    Combo1->showName(settings.ScreenFontName);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Combo1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    Combo2 = new FontSizeCombo(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setAccessibleName(QStringLiteral("Font Size"));
    Combo2->showSize(settings.ScreenFontSize);
    for (QComboBox* combo : {static_cast<QComboBox*>(Combo1), static_cast<QComboBox*>(Combo2)}) {
        combo->setFocusPolicy(Qt::TabFocus);
        choice->addWidget(combo);
    }
    connect(Combo1, &QComboBox::activated, this, &Form12::Combo1_Click);
    connect(Combo2, &QComboBox::activated, this, &Form12::Combo2_Click);
}

void Form12::addButtons(QVBoxLayout& column) {
    auto* buttons = new QHBoxLayout;
    column.addLayout(buttons);
    buttons->addStretch();
    auto* save = new CB(QStringLiteral("Save"), QStringLiteral("Save And Exit"), this);
    auto* exitButton =
        new CB(QStringLiteral("ExitButton"), QStringLiteral("Exit Without Saving"), this);
    buttons->addWidget(save);
    buttons->addWidget(exitButton);
    connect(save, &CB::clicked, this, &Form12::Save_Click);
    connect(exitButton, &CB::clicked, this, &Form12::ExitButton_Click);
}

void Form12::placeOnDisplay1() {
    adjustSize();
    GetDisplayRect(m_session, 1);
    move(displayRect(m_session.displays).center() - rect().center());
}

void Form12::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Hscroll1->setValue(m_session.settings.ColumnMargin);
    Hscroll1_Change();
    Text1->setFocus();
}

void Form12::showColours() {
    QPalette palette = Text1->palette();
    palette.setColor(QPalette::Base, colorOf(m_backColor));
    palette.setColor(QPalette::Text, colorOf(m_foreColor));
    Text1->setPalette(palette);
    // Below a style sheet the part that is painted does not follow its control.
    Text1->viewport()->setPalette(palette);
}

void Form12::showFont() {
    const int points =
        std::clamp(numericPrefix(Combo2->currentText()), SmallestPoints, LargestPoints);
    QFont font(Combo1->currentText());
    font.setPixelSize(
        std::max(1, static_cast<int>(std::lround(points * PixelsPerPoint * SampleScale *
                                                 editorZoom(m_session.screen.ScaleX)))));
    Text1->setFont(font);
}

void Form12::returnToSample() {
    QTextCursor cursor = Text1->textCursor();
    cursor.clearSelection();
    Text1->setTextCursor(cursor);
    // A mouse does not give the focus to the controls of this window: whichever has it was reached
    // by keyboard.
    const QWidget* focused = focusWidget();
    if (focused == nullptr || focused->focusPolicy() != Qt::TabFocus || !focused->hasFocus()) {
        Text1->setFocus();
    }
}

void Form12::Combo1_Click() {
    showFont();
    returnToSample();
}

void Form12::Combo2_Click() {
    showFont();
    returnToSample();
}

void Form12::Hscroll1_Change() {
    const int taken = static_cast<int>(
        std::lround((Hscroll1->value() - MinColumnMargin) * SampleScale * m_session.screen.ScaleX));
    Text1->setFixedWidth(std::max(1, Hscroll1->width() - taken));
    returnToSample();
}

void Form12::Save_Click() {
    Settings& settings = m_session.settings;
    settings.ScreenBackColor = m_backColor;
    settings.ScreenTextColor = m_foreColor;
    settings.ScreenFontName = Combo1->currentText();
    settings.ScreenFontSize = numericPrefix(Combo2->currentText());
    settings.ColumnMargin = Hscroll1->value();
    accept();
}

void Form12::ExitButton_Click() {
    reject();
}

} // namespace velmora
