#include "widgets/setting_rows.h"

#include "widgets/push_button.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace velmora {

namespace {

// Two columns of buttons, so that a pair shares the width of a single one.
enum Column { FirstButton, SecondButton, Caption, Value, Behind };

} // namespace

void SettingRow::showValue(const QString& text) const {
    value->setText(text);
    for (CB* pressed : {button, secondButton}) {
        if (pressed != nullptr) {
            pressed->setAccessibleDescription(text);
        }
    }
}

SettingRows::SettingRows(QWidget* parent) : QWidget(parent), m_grid(new QGridLayout(this)) {
    const int em = fontMetrics().height();
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(em / 2);
    m_grid->setVerticalSpacing(em / 2);
    m_grid->setColumnStretch(FirstButton, 1);
    m_grid->setColumnStretch(SecondButton, 1);
}

SettingRow SettingRows::addRow(const SettingRowNames& names) {
    ++m_row;
    SettingRow row;
    const bool pair = !names.secondButton.isEmpty();
    row.button = addButton(names.button, names.buttonCaption, FirstButton, pair ? 1 : 2);
    if (pair) {
        row.secondButton = addButton(names.secondButton, names.secondCaption, SecondButton, 1);
        m_pairWidth = std::max(
            {m_pairWidth, row.button->sizeHint().width(), row.secondButton->sizeHint().width()});
        m_grid->setColumnMinimumWidth(FirstButton, m_pairWidth);
        m_grid->setColumnMinimumWidth(SecondButton, m_pairWidth);
    }
    if (names.value.isEmpty()) {
        return row;
    }
    auto* caption = new QLabel(QStringLiteral(" Current Setting:"), this);
    m_grid->addWidget(caption, m_row, Caption);
    row.value = new QLabel(this);
    row.value->setObjectName(names.value.toString());
    row.value->setTextFormat(Qt::PlainText);
    QFont font = row.value->font();
    font.setBold(true);
    row.value->setFont(font);
    m_grid->addWidget(row.value, m_row, Value);
    return row;
}

void SettingRows::reserveWidth(const QString& text) {
    QLabel sample(text);
    QFont font = sample.font();
    font.setBold(true);
    sample.setFont(font);
    m_valueWidth = std::max(m_valueWidth, sample.sizeHint().width());
    m_grid->setColumnMinimumWidth(Value, m_valueWidth);
}

void SettingRows::addBehindValue(QWidget* control) {
    m_grid->addWidget(control, m_row, Behind);
}

CB* SettingRows::addButton(QStringView name, QStringView caption, int column, int columns) {
    auto* button = new CB(name.toString(), caption.toString(), this);
    m_grid->addWidget(button, m_row, column, 1, columns);
    return button;
}

} // namespace velmora
