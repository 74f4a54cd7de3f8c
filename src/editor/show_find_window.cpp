#include "editor/show_find_window.h"

#include "core/session.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace velmora {

namespace {

constexpr int Forward = 1;
constexpr int Backward = -1;

QString usualLabel() {
    return QStringLiteral("Search is not case sensitive.\r\nEnter text to search for.");
}

} // namespace

Form14::Form14(FindState& find, QWidget* parent) : QDialog(parent), m_find(find) {
    setWindowTitle(QStringLiteral("Find"));
    Label1 = new QLabel(usualLabel(), this);
    Text1 = new QLineEdit(this);
    Text1->setAccessibleName(QStringLiteral("Text to search for"));
    FindNext = new QPushButton(QStringLiteral("Find Next"), this);
    FindPrevious = new QPushButton(QStringLiteral("Find Previous"), this);
    ExitButton = new QPushButton(QStringLiteral("Exit"), this);
    FindNext->setDefault(true);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {FindNext, FindPrevious, ExitButton}) {
        buttons->addWidget(button);
    }
    auto* column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(Text1);
    column->addLayout(buttons);
    connect(FindNext, &QPushButton::clicked, this, [this] { answer(Text1->text(), Forward); });
    connect(FindPrevious, &QPushButton::clicked, this, [this] { answer(Text1->text(), Backward); });
    connect(ExitButton, &QPushButton::clicked, this, &QDialog::reject);
}

void Form14::ask() {
    m_find.FindText.clear();
    m_find.FindDirection = 0;
    Text1->setText(m_find.LastFindText);
    Text1->selectAll();
    Text1->setFocus();
    if (m_noMatch) {
        Label1->setText(QStringLiteral("No More Matches."));
        QTimer::singleShot(MessagePauseMs, this, &Form14::endMessagePause);
    }
    exec();
}

void Form14::showNoMatch() {
    m_noMatch = true;
}

void Form14::answer(const QString& text, int direction) {
    Text1->selectAll();
    if (m_noMatch || text.isEmpty()) {
        return;
    }
    m_find.FindText = text;
    m_find.FindDirection = direction;
    accept();
}

void Form14::endMessagePause() {
    m_noMatch = false;
    Label1->setText(usualLabel());
}

} // namespace velmora
