#include "display/flipped_view.h"

#include <QGraphicsProxyWidget>
#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>

namespace velmora {

FlippedView::FlippedView(QWidget* sheet, QWidget* parent) : QGraphicsView(parent), m_sheet(sheet) {
    setScene(&m_scene);
    m_scene.addWidget(sheet);
    m_scene.setSceneRect(QRectF(QPointF(0, 0), sheet->sizeHint()));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedSize(sheet->sizeHint());
    scale(-1, 1);
}

QSize FlippedView::sizeHint() const {
    return m_sheet->sizeHint();
}

void FlippedView::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QGraphicsView::keyPressEvent(event);
        return;
    }
    const auto buttons = m_sheet->findChildren<QPushButton*>();
    auto pressed = std::ranges::find_if(buttons, &QPushButton::hasFocus);
    if (pressed == buttons.end()) {
        pressed = std::ranges::find_if(buttons, &QPushButton::isDefault);
    }
    if (pressed != buttons.end()) {
        (*pressed)->click();
    }
}

} // namespace velmora
