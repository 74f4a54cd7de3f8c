#include "display/show_find_window.h"

#include "core/session.h"
#include "display/flipped_view.h"
#include "widgets/dialog_animation.h"
#include "widgets/push_button.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <array>
#include <cmath>
#include <numbers>

namespace velmora {

namespace {

constexpr int Forward = 1;
constexpr int Backward = -1;

QString usualLabel() {
    return QStringLiteral("Search is not case sensitive.\r\nEnter text to search for.");
}

void drawLines(QPainter& painter, const QColor& colour) {
    constexpr std::array widths = {37.0, 29.0, 35.0, 20.0};
    painter.setBrush(colour);
    double y = 5;
    for (const double width : widths) {
        painter.drawRoundedRect(QRectF(3, y, width, 3.5), 1.7, 1.7);
        y += 10;
    }
}

/// A magnifying glass that goes round over lines of text.
void drawSearch(QPainter& painter, double phase, const QPalette& colours) {
    constexpr double radius = 10;
    const double angle = 2 * std::numbers::pi * phase;
    const QPointF lens(20 - 7 * std::cos(angle), 19.5 - 5.5 * std::sin(angle));
    drawLines(painter, colours.color(QPalette::PlaceholderText));

    QPainterPath glass;
    glass.addEllipse(lens, radius, radius);
    painter.save();
    painter.setClipPath(glass);
    painter.fillPath(glass, colours.color(QPalette::Base));
    painter.translate(lens);
    painter.scale(1.5, 1.5);
    painter.translate(-lens);
    drawLines(painter, colours.color(QPalette::Highlight).lighter(130));
    painter.restore();

    const QColor metal = colours.color(QPalette::WindowText);
    const QPointF diagonal(std::numbers::sqrt2 / 2, std::numbers::sqrt2 / 2);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(metal, 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(lens + diagonal * (radius + 3), lens + diagonal * (radius + 8.5));
    painter.setPen(QPen(metal, 2));
    painter.drawLine(lens + diagonal * radius, lens + diagonal * (radius + 3));
    painter.drawEllipse(lens, radius, radius);
}

} // namespace

Form14::Form14(Session& session, Orientation face, QWidget* parent)
    : QDialog(parent), m_find(session.find) {
    setWindowTitle(QStringLiteral("Find"));
    if (face == Orientation::Plain) {
        fill(*this, session);
    } else {
        auto* sheet = new QWidget;
        fill(*sheet, session);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins({});
        column->addWidget(new FlippedView(sheet, this));
    }
    FindNext->setDefault(true);
    connect(FindNext, &QPushButton::clicked, this, [this] { answer(Text1->text(), Forward); });
    connect(FindPrevious, &QPushButton::clicked, this, [this] { answer(Text1->text(), Backward); });
    connect(ExitButton, &QPushButton::clicked, this, &QDialog::reject);
}

void Form14::fill(QWidget& sheet, Session& session) {
    Label1 = new QLabel(usualLabel(), &sheet);
    Text1 = new QLineEdit(&sheet);
    Text1->setAccessibleName(QStringLiteral("Text to search for"));
    FindNext = new QPushButton(QStringLiteral("Find Next"), &sheet);
    FindPrevious = new QPushButton(QStringLiteral("Find Previous"), &sheet);
    ExitButton = new QPushButton(QStringLiteral("Exit"), &sheet);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {FindNext, FindPrevious, ExitButton}) {
        buttons->addWidget(button);
    }
    auto* head = new QHBoxLayout;
    head->setSpacing(fontMetrics().height());
    head->addWidget(new DialogAnimation(QStringLiteral("Picture1"), {{43, 44}, 28, drawSearch},
                                        session.platform.clock, &sheet));
    head->addWidget(Label1, 1);
    auto* column = new QVBoxLayout(&sheet);
    column->addLayout(head);
    column->addWidget(Text1);
    column->addLayout(buttons);
    usePlainButtonsOnFewColours(sheet, session.screen);
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
