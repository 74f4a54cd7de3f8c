#include "platform/devices/pointer_widgets.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

namespace velmora {

WidgetPointer::~WidgetPointer() {
    WidgetPointer::release();
}

void WidgetPointer::confine(QWidget& area) {
    dropConfinement();
    m_area = &area;
    m_window = area.window();
    m_window->installEventFilter(this);
    area.grabMouse();
}

void WidgetPointer::hide(QWidget& area) {
    if (m_hiddenOver != nullptr && m_hiddenOver != &area) {
        m_hiddenOver->unsetCursor();
    }
    m_hiddenOver = &area;
    area.setCursor(Qt::BlankCursor);
}

void WidgetPointer::release() {
    dropConfinement();
    if (m_hiddenOver != nullptr) {
        m_hiddenOver->unsetCursor();
        m_hiddenOver = nullptr;
    }
}

bool WidgetPointer::moveTo(QPoint place) {
    QCursor::setPos(place);
    // Wayland lets no client move the pointer, and says nothing.
    return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

bool WidgetPointer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_window && m_area != nullptr) {
        if (event->type() == QEvent::WindowDeactivate) {
            m_area->releaseMouse();
        } else if (event->type() == QEvent::WindowActivate) {
            m_area->grabMouse();
        }
    }
    return QObject::eventFilter(watched, event);
}

void WidgetPointer::dropConfinement() {
    if (m_window != nullptr) {
        m_window->removeEventFilter(this);
        m_window = nullptr;
    }
    if (m_area != nullptr) {
        m_area->releaseMouse();
        m_area = nullptr;
    }
}

} // namespace velmora
