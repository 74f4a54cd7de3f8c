#include "display/pointer_control.h"

#include "controllers/speed_mapping.h"
#include "core/session.h"
#include "display/control_row.h"
#include "display/operator_keys.h"
#include "display/show_steering.h"
#include "display/text_window.h"
#include "platform/devices/wheel.h"

#include <QMouseEvent>
#include <QWheelEvent>

namespace velmora {

namespace {

PictureButton pictureButton(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return PictureButton::Left;
    case Qt::RightButton:
        return PictureButton::Right;
    default:
        return PictureButton::Other;
    }
}

} // namespace

PointerControl::PointerControl(const Parts& parts, const DisplayTraits& traits)
    : m_session(parts.session), m_parts(parts), m_traits(traits),
      m_speedPointer(parts.session, parts.devices) {
    watch(parts.Picture1);
    connect(&parts.Picture6, &SpeedScale::pressed, this, &PointerControl::Picture6_MouseDown);
    connect(&parts.Picture6, &SpeedScale::dragged, this,
            [this](double scrollSpeed) { m_parts.steering.setSpeed(scrollSpeed); });
}

PointerControl::~PointerControl() {
    freePointer();
}

void PointerControl::watch(TextWindow& picture) {
    m_picture = &picture;
    m_picture->setMouseTracking(true);
    m_picture->installEventFilter(this);
}

void PointerControl::moveTo(TextWindow& picture) {
    if (m_picture == &picture) {
        return;
    }
    m_picture->removeEventFilter(this);
    freePointer();
    watch(picture);
    catchPointer();
}

void PointerControl::freePointer() {
    m_speedPointer.end();
}

/// Nobody steers a timed show: there the pointer is for its buttons and its bar.
void PointerControl::catchPointer() {
    if (m_traits.timed) {
        return;
    }
    m_speedPointer.begin(*m_picture);
}

bool PointerControl::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        turnWheel(*static_cast<QWheelEvent*>(event));
        return true;
    }
    return watched == m_picture && pictureEvent(event);
}

/// True where the event was one of the pointer's.
bool PointerControl::pictureEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        Picture1_MouseDown(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        // Of a mouse the first press was the press; who steers by hand presses as fast as this.
        if (m_session.settings.SpeedControllerInUse == 1) {
            Picture1_MouseDown(*static_cast<QMouseEvent*>(event));
        }
        return true;
    case QEvent::MouseMove:
        Picture1_MouseMove(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        m_speedPointer.released();
        return true;
    default:
        return false;
    }
}

void PointerControl::Picture1_MouseDown(const QMouseEvent& event) {
    if (m_traits.timed) {
        m_parts.actions.startOrReset();
        return;
    }
    const bool mirrored = m_traits.face == Orientation::Mirrored;
    switch (
        pictureClick(pictureButton(event.button()), m_session.settings, m_session.show, mirrored)) {
    case PictureClick::TogglePause:
        m_parts.steering.togglePause();
        break;
    case PictureClick::Reverse:
        m_parts.steering.reverse();
        break;
    case PictureClick::ToggleFullScreen:
        m_parts.actions.toggleFullScreen();
        break;
    case PictureClick::None:
        break;
    }
}

void PointerControl::Picture1_MouseMove(const QMouseEvent& event) {
    if (m_traits.timed) {
        return;
    }
    const TextWindow& picture = *m_picture;
    PointerMove move;
    move.position = event.position();
    move.leftHeld = event.buttons().testFlag(Qt::LeftButton);
    move.otherHeld = (event.buttons() & ~Qt::MouseButtons(Qt::LeftButton)) != Qt::NoButton;
    move.picture = QRect(picture.mapToGlobal(QPoint(0, 0)), picture.size());
    m_speedPointer.moved(move);
}

void PointerControl::turnWheel(const QWheelEvent& event) {
    if (m_traits.timed || m_session.show.BlankState == 1) {
        return;
    }
    const WheelTurn turn = wheelTurn(event);
    m_parts.steering.setSpeed(
        wheelSpeed(m_session.settings.ScrollSpeed, turn.delta, turn.modifierHeld));
}

void PointerControl::Picture6_MouseDown(double x) {
    const SpeedScaleMapping& mapping = m_parts.Picture6.mapping();
    switch (mapping.partAt(x)) {
    case SpeedScaleMapping::Part::Start:
        m_parts.steering.start();
        break;
    case SpeedScaleMapping::Part::Pause:
        m_parts.steering.togglePause();
        break;
    case SpeedScaleMapping::Part::Scale:
        m_parts.steering.setSpeed(mapping.pressedSpeed(x));
        break;
    case SpeedScaleMapping::Part::None:
        break;
    }
}

} // namespace velmora
