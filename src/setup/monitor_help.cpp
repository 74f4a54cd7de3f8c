#include "setup/monitor_help.h"

#include "core/session.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {

namespace {

QString helpText() {
    return QStringLiteral(
        "This version of Velmora™ supports dual-screen operation. To utilize the dual-screen "
        "features, your computer must have multiple-monitor support enabled on the desktop.\n\n"
        "Multiple-monitor support is available on almost every laptop with an external video port. "
        "It is also available on desktops with multiple video cards, or with a single "
        "\"Multi-Head\" video card.\n\n"
        "Your multiple-monitor configuration needs to be set so that the Desktop is extended to "
        "the second display. Use of alternative configurations (such as Desktop Mirroring) will "
        "prevent Velmora™ from functioning correctly in dual-screen mode.\n\n"
        "The display used by the Operator should be Display 1, and the display used by the speaker "
        "should be Display 2. Velmora™ also requires both displays to be set to the same "
        "resolution.\n\n"
        "Please consult your hardware documentation or the Desktop's help if you don't know how to "
        "configure multiple monitors.");
}

} // namespace

Form11::Form11(Session& session, QWidget* parent) : QDialog(parent), m_session(session) {
    setObjectName(QStringLiteral("Form11"));
    setWindowTitle(QStringLiteral("Multiple Monitors"));
    const int em = fontMetrics().height();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(2 * em, em, 2 * em, em);
    rows->setSpacing(em);

    auto* label = new QLabel(helpText(), this);
    label->setObjectName(QStringLiteral("Label1"));
    label->setWordWrap(true);
    label->setFixedWidth(32 * em);
    rows->addWidget(label);

    auto* bottom = new QHBoxLayout;
    rows->addLayout(bottom);
    Check1 = new QCheckBox(QStringLiteral("Ignore This Message From Now On"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    bottom->addWidget(Check1);
    bottom->addStretch();
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OK"));
    ok->setMinimumWidth(6 * em);
    ok->setDefault(true);
    ok->setFocus();
    connect(ok, &QPushButton::clicked, this, &Form11::OK_Click);
    bottom->addWidget(ok);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void Form11::showHelp() {
    m_session.script.MonitorHelpClosed = 0;
    exec();
}

void Form11::reject() {
    closeHelp();
}

void Form11::OK_Click() {
    if (Check1->isChecked()) {
        m_session.settings.IgnoreMonitorHelp = 1;
    }
    closeHelp();
}

void Form11::closeHelp() {
    m_session.script.MonitorHelpClosed = 1;
    accept();
}

} // namespace velmora
