#include "display/mirrored_question.h"

#include "display/flipped_face.h"

#include <QPainter>

namespace velmora {

namespace {

constexpr int Width = 460;
constexpr int Height = 190;
constexpr int Margin = 24;
constexpr int TitleHeight = 28;
constexpr int TitlePixels = 20;
constexpr int TextPixels = 16;
constexpr int ButtonWidth = 110;
constexpr int ButtonHeight = 34;

} // namespace

Form6::Form6(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), m_title(title), m_text(text) {
    setWindowTitle(title);
    setAccessibleDescription(text);
    setFixedSize(Width, Height);
    // As in a mirror: Yes, which reads first, stands at the right.
    CB1 = new ShowButton(QStringLiteral("No"), Orientation::Mirrored, this);
    CB2 = new ShowButton(QStringLiteral("Yes"), Orientation::Mirrored, this);
    const int top = Height - Margin - ButtonHeight;
    CB1->setGeometry(Width / 2 - ButtonWidth - 10, top, ButtonWidth, ButtonHeight);
    CB2->setGeometry(Width / 2 + 10, top, ButtonWidth, ButtonHeight);
    for (ShowButton* button : {CB2, CB1}) {
        button->setFocusPolicy(Qt::StrongFocus);
    }
    CB2->setDefault(true);
    connect(CB1, &ShowButton::clicked, this, &QDialog::reject);
    connect(CB2, &ShowButton::clicked, this, &QDialog::accept);
}

int Form6::ask() {
    MirroredAnswer = exec() == QDialog::Accepted ? 1 : 0;
    return MirroredAnswer;
}

void Form6::paintEvent(QPaintEvent*) {
    paintFace(*this, Orientation::Mirrored, [this](QPainter& painter) { paintQuestion(painter); });
}

void Form6::paintQuestion(QPainter& painter) const {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(TitlePixels);
    font.setBold(true);
    painter.setFont(font);
    const QRect inside = rect().adjusted(Margin, Margin, -Margin, -Margin);
    painter.drawText(inside, Qt::AlignTop | Qt::AlignHCenter, m_title);
    font.setPixelSize(TextPixels);
    font.setBold(false);
    painter.setFont(font);
    painter.drawText(inside.adjusted(0, TitleHeight + Margin / 2, 0, -ButtonHeight),
                     Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap, m_text);
}

} // namespace velmora
