#include "setup/controller_choice.h"

#include "core/arrangement.h"
#include "core/session.h"
#include "platform/desktop/message_boxes.h"
#include "platform/timing/event_pump.h"
#include "setup/shuttle_page.h"
#include "setup/two_button_page.h"
#include "widgets/push_button.h"

#include <QVBoxLayout>

namespace velmora {

namespace {

/// The wait sleeps in the event queue: this is only how soon it sees what no event told it.
constexpr int WaitMs = 50;

struct Choice final {
    QStringView name;
    QStringView caption;
    int controllerType;
};

constexpr Choice Choices[] = {
    {u"UseFootController", u"Use Foot Controller", controller::Foot},
    {u"UseRFController", u"Use RF Wireless Controller", controller::RfWireless},
    {u"UseTarnController", u"Use USB Trigger Controller", controller::Trigger},
    {u"NoHandController", u"No Controller", controller::None},
};

} // namespace

Form3::Form3(Session& session, QWidget* parent)
    : QDialog(parent), m_session(session), m_choicePage(makeChoicePage()),
      Picture3(new ShuttlePage(session.settings, this)),
      m_twoButtonPage(new TwoButtonPage(session.settings, this)) {
    setObjectName(QStringLiteral("Form3"));
    setWindowTitle(QStringLiteral("Setup Speed Controller"));
    setModal(true);
    const int em = fontMetrics().height();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * em, em, 2 * em, em);
    for (QWidget* page : pages()) {
        column->addWidget(page);
    }
    column->setSizeConstraint(QLayout::SetFixedSize);
    Picture3->showFunctions();
    connect(Picture3, &ShuttlePage::saved, this, [this] {
        showChoice();
        // The shuttle needs neither mouse nor joystick. It also ends the wait.
        m_session.settings.ControllerType = controller::None;
    });
    connect(Picture3, &ShuttlePage::cancelled, this, &Form3::showChoice);
    connect(m_twoButtonPage, &TwoButtonPage::left, this, &Form3::showChoice);
    usePlainButtonsOnFewColours(*this, session.screen);
    showChoice();
}

std::array<QWidget*, 3> Form3::pages() const {
    return {m_choicePage, Picture3, m_twoButtonPage};
}

QWidget* Form3::makeChoicePage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    const int em = fontMetrics().height();
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(em / 2);
    const auto add = [page, column, em](const QString& name, const QString& caption) {
        auto* button = new CB(name, caption, page);
        button->setMinimumWidth(18 * em);
        column->addWidget(button, 0, Qt::AlignHCenter);
        return button;
    };
    for (const Choice& choice : Choices) {
        connect(add(choice.name.toString(), choice.caption.toString()), &CB::clicked, this,
                [this, &choice] { m_session.settings.ControllerType = choice.controllerType; });
    }
    connect(add(QStringLiteral("ShuttleXpress"), QStringLiteral("Setup ShuttleXpress")),
            &CB::clicked, this, &Form3::ShuttleXpress_Click);
    column->addSpacing(em);
    connect(add(QStringLiteral("ExitButton"), QStringLiteral("Exit")), &CB::clicked, this,
            &Form3::ExitButton_Click);
    return page;
}

void Form3::choose() {
    show();
    Form_Activate();
    hide();
}

void Form3::Form_Activate() {
    int& controllerType = m_session.settings.ControllerType;
    const int before = controllerType;
    controllerType = 0;
    m_session.keptControllerType = before;
    m_finished = false;
    while (!m_finished && controllerType <= 0) {
        m_session.platform.pump.waitForEvents(WaitMs);
    }
    m_session.keptControllerType.reset();
    if (m_finished) {
        controllerType = before;
    }
}

void Form3::showChoice() {
    showPage(m_choicePage);
}

void Form3::showPage(QWidget* page) {
    const QPoint middle = geometry().center();
    for (QWidget* other : pages()) {
        other->setVisible(other == page);
    }
    if (isVisible()) {
        layout()->activate();
        move(middle - rect().center() - (geometry().topLeft() - pos()));
    }
}

void Form3::ShuttleXpress_Click() {
    Picture3->showFunctions();
    showPage(Picture3);
    Picture3->begin();
}

void Form3::ExitButton_Click() {
    if (NeedsRestart == 1) {
        m_session.platform.messages.show(
            MessageIcon::Information, QStringLiteral("Restart To Apply Changes"),
            QStringLiteral("You must restart Velmora™ before calibration changes take effect."),
            MessageButtons::Ok);
    }
    m_finished = true;
}

void Form3::reject() {
    // The wait closes the window, as it does after a choice.
    m_finished = true;
}

} // namespace velmora
