#include "setup/monitor_help.h"

#include "core/session.h"
#include "widgets/dialog_animation.h"
#include "widgets/push_button.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <cmath>
#include <numbers>

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

void drawMonitor(QPainter& painter, const QRectF& screen, const QPalette& colours) {
    painter.setBrush(colours.color(QPalette::WindowText));
    const double middle = screen.center().x();
    painter.drawRect(QRectF(middle - 1.5, screen.bottom(), 3, 4));
    painter.drawRoundedRect(QRectF(middle - 5, screen.bottom() + 3, 10, 1.6), 0.8, 0.8);
    painter.drawRoundedRect(screen.adjusted(-1.5, -1.5, 1.5, 1.5), 2, 2);
    painter.setBrush(colours.color(QPalette::Base));
    painter.drawRect(screen);
}

/// Two monitors, and a text that goes from the one to the other and back.
void drawMonitors(QPainter& painter, double phase, const QPalette& colours) {
    const QRectF first(2, 2, 18, 11);
    const QRectF second(16, 18, 18, 11);
    drawMonitor(painter, first, colours);
    drawMonitor(painter, second, colours);

    QPainterPath screens;
    screens.addRect(first);
    screens.addRect(second);
    painter.setClipPath(screens);
    const double way = (1 - std::cos(2 * std::numbers::pi * phase)) / 2;
    painter.translate(first.topLeft() + (second.topLeft() - first.topLeft()) * way);
    painter.fillRect(QRectF(QPointF(), first.size()), colours.color(QPalette::Highlight));
    painter.setBrush(colours.color(QPalette::HighlightedText));
    constexpr std::array widths = {13.0, 10.0, 12.0};
    double y = 2;
    for (const double width : widths) {
        painter.drawRect(QRectF((first.width() - width) / 2, y, width, 1.4));
        y += 2.8;
    }
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
    auto* top = new QHBoxLayout;
    top->setSpacing(em);
    top->addWidget(new DialogAnimation(QStringLiteral("Picture3"), {{36, 36}, 29, drawMonitors},
                                       session.platform.clock, this),
                   0, Qt::AlignTop);
    top->addWidget(label);
    rows->addLayout(top);

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
    usePlainButtonsOnFewColours(*this, session.screen);
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
