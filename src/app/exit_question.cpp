#include "app/exit_question.h"

#include "core/session.h"
#include "platform/desktop/message_boxes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {

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
    rows->addWidget(question);

    auto* buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    const auto addButton = [&](const QString& name, Qt::Key key, void (Form17::*handler)()) {
        auto* button = new QPushButton(name, this);
        button->setShortcut(key);
        button->setObjectName(name);
        button->setMinimumWidth(6 * em);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, handler);
        buttons->addWidget(button);
        return button;
    };
    addButton(QStringLiteral("Yes"), Qt::Key_Y, &Form17::Yes_Click)->setDefault(true);
    addButton(QStringLiteral("No"), Qt::Key_N, &Form17::No_Click);
    addButton(QStringLiteral("Cancel"), Qt::Key_C, &Form17::Cancel_Click);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void Form17::ask() {
    m_session.script.DialogClosing = 0;
    exec();
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
