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
        "<p>Velmora can run a show on one display or on two.</p>"
        "<p><b>One display.</b> Operator and speaker look at the same screen. Where the speaker "
        "reads it in a mirror, the Setup can flip the text from left to right.</p>"
        "<p><b>Two displays.</b> The operator keeps Display 1, the speaker reads a flipped copy of "
        "it on Display 2. For this the desktop must be <i>extended</i> over both displays. A "
        "desktop that shows the same picture on both counts as one display only.</p>"
        "<p>Display 1 is the one further to the left. Give both displays the same resolution, so "
        "that every line fits both.</p>"
        "<p>How to connect and arrange displays is told by the display settings of the desktop and "
        "by the papers that came with the computer.</p>");
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
