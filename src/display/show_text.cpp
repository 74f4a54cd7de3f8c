#include "display/show_text.h"

#include "display/flipped_face.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace velmora {

namespace {

constexpr int DotsPerInch = 96;
constexpr int PointsPerInch = 72;

} // namespace

ShowText::ShowText(const QString& text, int points, Orientation orientation, QWidget* parent)
    : QWidget(parent), m_text(text), m_points(points), m_orientation(orientation) {
    setUnit(1);
    setFocusPolicy(Qt::NoFocus);
}

void ShowText::setText(const QString& text) {
    if (text != m_text) {
        m_text = text;
        update();
    }
}

void ShowText::setUnit(double unit) {
    QFont face(QStringLiteral("Arial"));
    face.setPixelSize(static_cast<int>(m_points * unit * DotsPerInch / PointsPerInch));
    setFont(face);
}

void ShowText::paintEvent(QPaintEvent*) {
    paintFace(*this, m_orientation, [this](QPainter& painter) {
        painter.setFont(font());
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, m_text);
    });
}

ShowButton::ShowButton(const QString& text, Orientation orientation, QWidget* parent)
    : QPushButton(text, parent), m_orientation(orientation) {
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void ShowButton::paintEvent(QPaintEvent*) {
    QStyleOptionButton option;
    initStyleOption(&option);
    paintFace(*this, m_orientation, [this, &option](QPainter& painter) {
        style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    });
}

} // namespace velmora
