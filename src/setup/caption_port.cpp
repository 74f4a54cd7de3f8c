#include "setup/caption_port.h"

#include "core/session.h"
#include "setup/caption_port_settings.h"
#include "widgets/push_button.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace velmora {

namespace {

struct CodeNames final {
    SettingRowNames names;
    QString Settings::*setting;
};

/// The rows of Text1 with CB1 to Text5 with CB5.
constexpr CodeNames Codes[] = {
    {{u"CCStartCodeButton", u"CC Start Code", u"Label10"}, &Settings::CCStartCode},
    {{u"CCStopCodeButton", u"CC Stop Code", u"Label11"}, &Settings::CCStopCode},
    {{u"CCLineStartCodeButton", u"CC Line Start Code", u"Label12"}, &Settings::CCLineStartCode},
    {{u"CCLineStopCodeButton", u"CC Line Stop Code", u"Label13"}, &Settings::CCLineStopCode},
    {{u"CCResetButton", u"CC Reset Code", u"Label14"}, &Settings::CCResetCode},
};

} // namespace

Form30::Form30(Session& session, QWidget* parent) : QDialog(parent), m_session(session) {
    setObjectName(QStringLiteral("Form30"));
    setWindowTitle(QStringLiteral("Velmora™ Closed Captioning"));
    Form_Load();
}

void Form30::Form_Load() {
    const int em = fontMetrics().height();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * em, em, 2 * em, em);
    column->setSpacing(em);
    addHeading(*column);
    auto* grid = new SettingRows(this);
    column->addWidget(grid);
    addCyclingRows(*grid);
    addCodeRows(*grid);
    auto* hint = new QLabel(
        QStringLiteral("When Entering CC Codes, Use The Carat (^) Key To Represent The Control "
                       "Character.  For Instance, Ctrl-M (Control M) Would Be Entered As ^M."),
        this);
    hint->setObjectName(QStringLiteral("Label15"));
    hint->setWordWrap(true);
    column->addWidget(hint);
    auto* exitButton = new CB(QStringLiteral("ExitButton"), QStringLiteral("Exit"), this);
    exitButton->setMinimumWidth(10 * em);
    connect(exitButton, &CB::clicked, this, &Form30::ExitButton_Click);
    column->addWidget(exitButton, 0, Qt::AlignRight);
    usePlainButtonsOnFewColours(*this, m_session.screen);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void Form30::addHeading(QVBoxLayout& column) {
    // Label2 is the shadow of Label1.
    auto* grid = new QGridLayout;
    column.addLayout(grid);
    const int shift = fontMetrics().height() / 10 + 1;
    for (const bool shadow : {true, false}) {
        auto* label = new QLabel(QStringLiteral("Velmora™ Closed Captioning"), this);
        label->setObjectName(shadow ? QStringLiteral("Label2") : QStringLiteral("Label1"));
        QFont font = label->font();
        font.setPixelSize(fontMetrics().height() * 3 / 2);
        font.setBold(true);
        label->setFont(font);
        if (shadow) {
            label->setContentsMargins(shift, shift, 0, 0);
            QPalette dark = label->palette();
            dark.setColor(QPalette::WindowText, Qt::black);
            label->setPalette(dark);
        }
        grid->addWidget(label, 0, 0, Qt::AlignLeft | Qt::AlignTop);
    }
}

void Form30::addCyclingRows(SettingRows& grid) {
    for (const CyclingSetting* setting :
         {&captions::Active, &captions::Port, &captions::Speed, &captions::Parity,
          &captions::DataBits, &captions::StopBits, &captions::Flow}) {
        setting->limit(m_session.settings);
        addCyclingRow(grid, *setting, m_session, [this, setting] {
            hideEdits();
            setting->limit(m_session.settings);
        });
    }
}

void Form30::addCodeRows(SettingRows& grid) {
    int number = 1;
    for (const CodeNames& code : Codes) {
        const SettingRow added = grid.addRow(code.names);
        // A code may be of any length; the window stays on the screen.
        added.value->setMaximumWidth(20 * fontMetrics().height());
        added.showValue(m_session.settings.*code.setting);
        auto* edit = new QWidget(&grid);
        auto* line = new QHBoxLayout(edit);
        line->setContentsMargins(0, 0, 0, 0);
        CodeRow row{code.setting, added, new QLineEdit(edit), nullptr};
        row.text->setObjectName(QStringLiteral("Text%1").arg(number));
        row.text->setAccessibleName(code.names.buttonCaption.toString());
        row.save = new CB(QStringLiteral("CB%1").arg(number), QStringLiteral("Save"), edit);
        line->addWidget(row.text);
        line->addWidget(row.save);
        // The room is kept, so that the window stands still.
        for (QWidget* hidden : {static_cast<QWidget*>(row.text), static_cast<QWidget*>(row.save)}) {
            QSizePolicy policy = hidden->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            hidden->setSizePolicy(policy);
        }
        grid.addBehindValue(edit);
        connect(added.button, &CB::clicked, this, [this, row] { openEdit(row); });
        connect(row.save, &CB::clicked, this, [this, row] { saveEdit(row); });
        m_codes.push_back(row);
        ++number;
    }
    hideEdits();
}

void Form30::hideEdits() {
    for (const CodeRow& row : m_codes) {
        row.text->hide();
        row.save->hide();
    }
}

void Form30::openEdit(const CodeRow& row) {
    hideEdits();
    row.text->setText(m_session.settings.*row.setting);
    row.text->show();
    row.save->show();
    // Enter in the box saves.
    row.save->setDefault(true);
    row.text->setFocus();
}

void Form30::saveEdit(const CodeRow& row) {
    m_session.settings.*row.setting = row.text->text();
    row.row.showValue(m_session.settings.*row.setting);
    hideEdits();
    row.row.button->setFocus();
}

void Form30::ExitButton_Click() {
    reject();
}

} // namespace velmora
