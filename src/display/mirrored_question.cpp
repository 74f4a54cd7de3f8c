#include "display/mirrored_question.h"

#include "display/flipped_face.h"

#include <QPainter>

namespace velmora {

namespace {

/// Sizes in heights of the window's font, which grows with the screen.
constexpr int Width = 28;
constexpr int ButtonWidth = 7;
constexpr int ButtonHeight = 2;
constexpr double Margin = 1.5;
constexpr double Gap = 0.5;
constexpr double TitleSize = 1.25;

constexpr int TextFlags = Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap;

QFont faceFont(double pixels, bool bold) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(qRound(pixels));
    font.setBold(bold);
    return font;
}

} // namespace

Form6::Form6(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), m_title(title), m_text(text) {
    setWindowTitle(title);
    setAccessibleDescription(text);
    // As in a mirror: Yes, which reads first, stands at the right.
    CB1 = new ShowButton(QStringLiteral("No"), Orientation::Mirrored, this);
    CB2 = new ShowButton(QStringLiteral("Yes"), Orientation::Mirrored, this);
    layOut();
    for (ShowButton* button : {CB2, CB1}) {
        button->setFocusPolicy(Qt::StrongFocus);
    }
    CB2->setDefault(true);
    connect(CB1, &ShowButton::clicked, this, &QDialog::reject);
    connect(CB2, &ShowButton::clicked, this, &QDialog::accept);
}

void Form6::layOut() {
    const int em = fontMetrics().height();
    const int margin = qRound(Margin * em);
    const int gap = qRound(Gap * em);
    const int inside = Width * em - 2 * margin;
    m_titleFont = faceFont(TitleSize * em, true);
    m_textFont = faceFont(em, false);
    m_titleRect = QRect(margin, margin, inside, QFontMetrics(m_titleFont).height());
    const QRect wrapped =
        QFontMetrics(m_textFont).boundingRect(QRect(0, 0, inside, 0), TextFlags, m_text);
    m_textRect = QRect(margin, m_titleRect.bottom() + gap, inside, wrapped.height());
    const int top = m_textRect.bottom() + margin;
    const QSize button(ButtonWidth * em, ButtonHeight * em);
    CB1->setGeometry({QPoint(Width * em / 2 - gap - button.width(), top), button});
    CB2->setGeometry({QPoint(Width * em / 2 + gap, top), button});
    setFixedSize(Width * em, top + button.height() + margin);
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
    painter.setFont(m_titleFont);
    painter.drawText(m_titleRect, Qt::AlignTop | Qt::AlignHCenter, m_title);
    painter.setFont(m_textFont);
    painter.drawText(m_textRect, TextFlags, m_text);
}

} // namespace velmora
