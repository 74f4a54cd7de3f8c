#include "setup/display_options.h"

#include "core/arrangement.h"
#include "core/line_spacing.h"
#include "core/session.h"
#include "platform/desktop/message_boxes.h"
#include "setup/caption_port_settings.h"
#include "setup/controller_choice.h"
#include "setup/editor_defaults.h"
#include "widgets/push_button.h"

#include <QVBoxLayout>

#include <algorithm>

namespace velmora {

namespace {

constexpr double DelayStep = 0.1;

constexpr Notice NoCaptions = {u"Brightleaf Pro™",
                               u"Closed Captioning Is Not Supported In This Version"};

} // namespace

/// A row of the window: one that cycles, or one with handlers of its own.
struct Form8::Row final {
    const CyclingSetting* cycle = nullptr;
    SettingRowNames names = {};
    void (Form8::*click)() = nullptr;
    void (Form8::*secondClick)() = nullptr;
    /// What the value label says.
    QString (Form8::*value)() = nullptr;
};

const std::vector<Form8::Row>& Form8::rows() {
    static const std::vector<Row> table = {
        {nullptr,
         {u"SetDisplayDefaults", u"Default Editor Settings"},
         &Form8::SetDisplayDefaults_Click},
        {nullptr,
         {u"SetLineSpacing1", u"Spacing -", u"Label3", u"SetLineSpacing2", u"Spacing +"},
         &Form8::SetLineSpacing1_Click,
         &Form8::SetLineSpacing2_Click,
         &Form8::lineSpacing},
        {&options::AutomaticLooping},
        {&options::FullScreenMode},
        {&options::FirstDisplayLine},
        {&options::ScrollerTurbo},
        {&options::ScrollSpeedControl},
        {nullptr,
         {u"ConfigureController", u"Setup Speed Controller", u"Label27"},
         &Form8::ConfigureController_Click,
         nullptr,
         &Form8::controller},
        {&options::Mirrordisplay},
        {&options::TimedDisplay},
        {nullptr,
         {u"CCSetup", u"Configure Closed Caption", u"Label39"},
         &Form8::CCSetup_Click,
         nullptr,
         &Form8::captionPort},
        {nullptr,
         {u"DelayLess", u"Max Speed -", u"Label43", u"DelayMore", u"Max Speed +"},
         &Form8::DelayLess_Click,
         &Form8::DelayMore_Click,
         &Form8::delay},
    };
    return table;
}

Form8::Form8(Session& session, QWidget* parent) : QDialog(parent), m_session(session) {
    setObjectName(QStringLiteral("Form8"));
    setWindowTitle(QStringLiteral("Display Setup"));
    Form_Load();
}

void Form8::Form_Load() {
    limitDisplayOptions(m_session.settings);
    const int em = fontMetrics().height();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * em, em, 2 * em, em);
    column->setSpacing(em);
    auto* grid = new SettingRows(this);
    column->addWidget(grid);
    for (const int type :
         {controller::Foot, controller::None, controller::Trigger, controller::RfWireless}) {
        grid->reserveWidth(controllerText(type));
    }
    for (const Row& row : rows()) {
        row.cycle != nullptr ? addCyclingRow(*grid, *row.cycle, m_session) : addRow(*grid, row);
    }
    auto* exitButton = new CB(QStringLiteral("ExitButton"), QStringLiteral("Exit"), this);
    exitButton->setMinimumWidth(10 * em);
    connect(exitButton, &CB::clicked, this, &Form8::ExitButton_Click);
    column->addWidget(exitButton, 0, Qt::AlignRight);
    usePlainButtonsOnFewColours(*this, m_session.screen);
    writeValues();
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void Form8::addRow(SettingRows& grid, const Row& row) {
    const SettingRow added = grid.addRow(row.names);
    connect(added.button, &CB::clicked, this, row.click);
    if (added.secondButton != nullptr) {
        connect(added.secondButton, &CB::clicked, this, row.secondClick);
    }
    if (added.value != nullptr) {
        m_values.push_back({added, row.value});
    }
}

void Form8::writeValues() {
    for (const Value& value : m_values) {
        value.row.showValue((this->*value.text)());
    }
}

// --- what the value labels say -------------------------------------------------------------------

QString Form8::lineSpacing() {
    m_session.show.LineSpacingText = lineSpacingText(m_session.settings.LineSpacingIndex);
    return m_session.show.LineSpacingText;
}

QString Form8::controller() {
    return controllerText(m_session.settings.ControllerType);
}

QString Form8::captionPort() {
    return captionPortSummary(m_session.settings);
}

QString Form8::delay() {
    return delayText(m_session.settings.Delay);
}

// --- what the buttons do -------------------------------------------------------------------------

void Form8::moveLineSpacing(int steps) {
    int& index = m_session.settings.LineSpacingIndex;
    index = std::clamp(index + steps, MinLineSpacingIndex, MaxLineSpacingIndex);
    writeValues();
}

void Form8::SetDisplayDefaults_Click() {
    Form12(m_session, this).exec();
}

void Form8::SetLineSpacing1_Click() {
    moveLineSpacing(-1);
}

void Form8::SetLineSpacing2_Click() {
    moveLineSpacing(1);
}

void Form8::ConfigureController_Click() {
    Form3(m_session, this).choose();
    Settings& settings = m_session.settings;
    settings.SpeedControllerInUse = speedControllerInUse(settings.ControllerType) ? 1 : 0;
    writeValues();
}

void Form8::CCSetup_Click() {
    m_session.platform.messages.show(MessageIcon::Information, NoCaptions.title.toString(),
                                     NoCaptions.text.toString(), MessageButtons::Ok);
}

void Form8::DelayLess_Click() {
    m_session.settings.Delay = movedDelay(m_session.settings.Delay, -DelayStep);
    writeValues();
}

void Form8::DelayMore_Click() {
    m_session.settings.Delay = movedDelay(m_session.settings.Delay, DelayStep);
    writeValues();
}

void Form8::ExitButton_Click() {
    reject();
}

void Form8::reject() {
    m_session.script.DialogClosing = 1;
    QDialog::reject();
}

} // namespace velmora
