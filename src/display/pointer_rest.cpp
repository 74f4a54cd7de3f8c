#include "display/pointer_rest.h"

#include "core/session.h"
#include "platform/timing/clock.h"

#include <QSinglePointEvent>
#include <QWidget>

namespace velmora {

PointerRest::PointerRest(const Session& session)
    : m_session(session), m_movedAt(session.platform.clock.counter()) {}

void PointerRest::watch(QWidget& picture) {
    picture.setMouseTracking(true);
    picture.installEventFilter(this);
    m_pictures.push_back(&picture);
}

void PointerRest::look() {
    const Clock& clock = m_session.platform.clock;
    if (m_shown && m_session.show.PauseState == pause::Scrolling &&
        clock.counter() - m_movedAt > RestSeconds * clock.frequency()) {
        showPointer(false);
    }
}

bool PointerRest::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) {
        // A picture that moves under the pointer tells of a move as well.
        const QPointF place = static_cast<QSinglePointEvent*>(event)->globalPosition();
        if (place != m_place) {
            m_place = place;
            m_movedAt = m_session.platform.clock.counter();
            showPointer(true);
        }
    }
    return QObject::eventFilter(watched, event);
}

void PointerRest::showPointer(bool shown) {
    if (shown == m_shown) {
        return;
    }
    m_shown = shown;
    for (QWidget* picture : m_pictures) {
        if (shown) {
            picture->unsetCursor();
        } else {
            picture->setCursor(Qt::BlankCursor);
        }
    }
}

} // namespace velmora
