#include "display/text_window.h"

#include "display/display_geometry.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace velmora {

namespace {

/// What assistive programs take the window for; a plain widget is nothing that they know.
QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* window = qobject_cast<TextWindow*>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Document);
}

} // namespace

TextWindow::TextWindow(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    QAccessible::installFactory(makeInterface);
    setAccessibleName(QStringLiteral("Running Script"));
}

void TextWindow::setBackground(QRgb color) {
    m_background = color;
}

void TextWindow::setBlank(bool blank) {
    m_blank = blank;
    update();
}

double TextWindow::share() const {
    return std::min(1.0, static_cast<double>(width()) / std::max(1, m_surface.width()));
}

QRect TextWindow::placeOfRows(int first, int count) const {
    const QRectF place(0, (TextTopMargin + first) * share(), width(), count * share());
    return place.toAlignedRect();
}

void TextWindow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect text(0, TextTopMargin, m_surface.width(), m_surface.rows());
    const QColor background = QColor::fromRgb(m_background);
    const bool shrunk = width() < m_surface.width();
    if (m_blank || shrunk) {
        painter.fillRect(event->rect(), background);
    }
    if (m_blank) {
        return;
    }
    if (shrunk) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.scale(share(), share());
        m_surface.paint(painter, text.left(), text.top(), text);
        return;
    }
    for (const QRect& margin : QRegion(event->rect()).subtracted(text)) {
        painter.fillRect(margin, background);
    }
    m_surface.paint(painter, text.left(), text.top(), event->rect() & text);
}

} // namespace velmora
