#include "app/exit_question.h"

#include "core/session.h"
#include "platform/desktop/message_boxes.h"
#include "platform/devices/key_numbers.h"
#include "widgets/dialog_animation.h"
#include "widgets/push_button.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace velmora {

namespace {

/// How far a movement from one phase to another has come: 0 to 1, gently begun and ended.
double progress(double phase, double from, double to) {
    const double way = std::clamp((phase - from) / (to - from), 0.0, 1.0);
    return (1 - std::cos(std::numbers::pi * way)) / 2;
}

void drawSheet(QPainter& painter, double top, const QPalette& colours) {
    painter.setBrush(colours.color(QPalette::WindowText));
    painter.drawRoundedRect(QRectF(6, top, 20, 24), 1.5, 1.5);
    painter.setBrush(colours.color(QPalette::PlaceholderText));
    constexpr std::array widths = {14.0, 11.0, 14.0, 8.0};
    double y = top + 4;
    for (const double width : widths) {
        painter.drawRect(QRectF(9, y, width, 1.6));
        y += 4.2;
    }
}

/// A sheet that slides into a folder; then the next one appears.
void drawSaving(QPainter& painter, double phase, const QPalette& colours) {
    const QRectF folder(1, 22, 30, 22);
    const double frontTop = 27;
    const QColor colour = colours.color(QPalette::Highlight);
    painter.setBrush(colour.darker(150));
    painter.drawRoundedRect(QRectF(1, 19, 13, 8), 2, 2);
    painter.drawRoundedRect(folder, 2, 2);

    painter.save();
    painter.setClipRect(QRectF(0, 0, folder.right(), folder.bottom() - 2));
    drawSheet(painter, 2 + (frontTop - 1) * progress(phase, 0.08, 0.68), colours);
    painter.setOpacity(progress(phase, 0.75, 1));
    painter.setClipRect(QRectF(0, 0, folder.right(), frontTop));
    drawSheet(painter, 2, colours);
    painter.restore();

    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(1, frontTop, 30, folder.bottom() - frontTop), 2, 2);
}

} // namespace

Form17::Form17(Session& session, QWidget* parent) : QDialog(parent), m_session(session) {
    setObjectName(QStringLiteral("Form17"));
    setWindowTitle(QStringLiteral("Exit"));
    auto* rows = new QVBoxLayout(this);
    const int em = fontMetrics().height();
    rows->setContentsMargins(2 * em, 2 * em, 2 * em, em);
    rows->setSpacing(2 * em);
    auto* question = new QLabel(QStringLiteral("Save Text Before Exiting?"), this);
    question->setObjectName(QStringLiteral("Label1"));
    question->setAlignment(Qt::AlignCenter);
    auto* top = new QHBoxLayout;
    top->setSpacing(em);
    top->addWidget(new DialogAnimation(QStringLiteral("Picture1"), {{32, 45}, 28, drawSaving},
                                       session.platform.clock, this));
    top->addWidget(question, 1);
    rows->addLayout(top);

    auto* buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    const auto addButton = [&](const QString& name, void (Form17::*handler)()) {
        auto* button = new QPushButton(name, this);
        button->setObjectName(name);
        button->setMinimumWidth(6 * em);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, handler);
        buttons->addWidget(button);
        return button;
    };
    addButton(QStringLiteral("Yes"), &Form17::Yes_Click)->setDefault(true);
    addButton(QStringLiteral("No"), &Form17::No_Click);
    addButton(QStringLiteral("Cancel"), &Form17::Cancel_Click);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    usePlainButtonsOnFewColours(*this, session.screen);
}

void Form17::ask() {
    m_session.script.DialogClosing = 0;
    exec();
}

/// A button's first letter presses it, on keyboards of another script by its place. Letters are
/// keys by their own number.
void Form17::keyPressEvent(QKeyEvent* event) {
    const auto buttons = findChildren<QPushButton*>();
    const auto pressed = std::ranges::find_if(buttons, [event](const QPushButton* button) {
        return button->text().front().unicode() == latinKey(*event);
    });
    if (pressed != buttons.end() && event->modifiers() == Qt::NoModifier) {
        (*pressed)->click();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void Form17::reject() {
    Cancel_Click();
}

void Form17::Yes_Click() {
    answer(static_cast<int>(MessageAnswer::Yes));
}

void Form17::No_Click() {
    answer(static_cast<int>(MessageAnswer::No));
}

void Form17::Cancel_Click() {
    answer(static_cast<int>(MessageAnswer::Cancel));
}

void Form17::answer(int exitAnswer) {
    m_session.script.ExitAnswer = exitAnswer;
    m_session.script.DialogClosing = 1;
    done(exitAnswer);
}

} // namespace velmora
