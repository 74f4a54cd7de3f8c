#include "setup/two_button_page.h"

#include "widgets/push_button.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include <array>

namespace velmora {

namespace {

struct HandFunction final {
    int value;
    QStringView text;
    /// The options' names, for button 1 and 2.
    std::array<QStringView, 2> options;
};

constexpr std::array<HandFunction, 9> HandFunctions = {{
    {0, u"Jump To Next Bookmark", {u"Option1", u"Option16"}},
    {1, u"Jump To Previous Bookmark", {u"Option2", u"Option15"}},
    {2, u"Pause", {u"Option3", u"Option14"}},
    {3, u"Jump To Beginning Of Text", {u"Option4", u"Option13"}},
    {4, u"Jump To End Of Text", {u"Option5", u"Option12"}},
    {5, u"Toggle Full-Screen Mode", {u"Option6", u"Option11"}},
    {6, u"Exit To Editor Screen", {u"Option7", u"Option10"}},
    {7, u"Insert Bookmark", {u"Option17", u"Option18"}},
    {10, u"Disable Button", {u"Option8", u"Option9"}},
}};

struct HandButton final {
    QStringView label;
    QStringView heading;
    int Settings::*setting;
};

constexpr std::array<HandButton, 2> HandButtons = {{
    {u"Label18", u"Controller Button 1", &Settings::ControllerButton1},
    {u"Label19", u"Controller Button 2", &Settings::ControllerButton2},
}};

} // namespace

TwoButtonPage::TwoButtonPage(Settings& settings, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_button1Before(settings.ControllerButton1),
      m_button2Before(settings.ControllerButton2) {
    auto* grid = new QGridLayout(this);
    for (int column = 0; column < static_cast<int>(HandButtons.size()); ++column) {
        addOptions(*grid, column);
    }
    auto* save = new CB(QStringLiteral("SaveSettings"), QStringLiteral("Save Settings"), this);
    auto* cancel = new CB(QStringLiteral("Cancel"), QStringLiteral("Cancel"), this);
    const int line = grid->rowCount();
    grid->addWidget(save, line, 0);
    grid->addWidget(cancel, line, 1);
    connect(save, &CB::clicked, this, &TwoButtonPage::SaveSettings_Click);
    connect(cancel, &CB::clicked, this, &TwoButtonPage::Cancel_Click);
}

void TwoButtonPage::addOptions(QGridLayout& grid, int column) {
    const auto index = static_cast<std::size_t>(column);
    const HandButton& button = HandButtons.at(index);
    auto* label = new QLabel(button.heading.toString(), this);
    label->setObjectName(button.label.toString());
    grid.addWidget(label, 0, column);
    auto* group = new QButtonGroup(this);
    int line = 1;
    for (const HandFunction& function : HandFunctions) {
        auto* option = new QRadioButton(function.text.toString(), this);
        option->setObjectName(function.options.at(index).toString());
        option->setChecked(m_settings.*button.setting == function.value);
        group->addButton(option);
        grid.addWidget(option, line++, column);
        connect(option, &QRadioButton::clicked, this,
                [this, &button, &function] { m_settings.*button.setting = function.value; });
    }
}

void TwoButtonPage::SaveSettings_Click() {
    Q_EMIT left();
}

void TwoButtonPage::Cancel_Click() {
    m_settings.ControllerButton1 = m_button1Before;
    m_settings.ControllerButton2 = m_button2Before;
    Q_EMIT left();
}

} // namespace velmora
