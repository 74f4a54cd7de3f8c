#include "controllers/speed_pointer.h"

#include "controllers/show_actions.h"
#include "controllers/speed_mapping.h"
#include "core/arrangement.h"
#include "core/number_format.h"
#include "core/session.h"
#include "platform/devices/pointer.h"

#include <cmath>

namespace velmora {

namespace {

/// Moves of at most this many pixels change no speed, those of at most TurnPixels no direction.
constexpr double DeadPixels = 1;
constexpr double TurnPixels = 5;
constexpr double SpeedPerSteeredPixel = 0.5;

int rounded(double place) {
    return static_cast<int>(roundHalfEven(place));
}

double squaredDistance(QPointF a, QPointF b) {
    const QPointF difference = a - b;
    return QPointF::dotProduct(difference, difference);
}

/// A difference along an axis, 0 within the dead pixels.
double beyondDeadPixels(double difference) {
    return std::abs(difference) > DeadPixels ? difference : 0;
}

} // namespace

PictureClick pictureClick(PictureButton button, const Settings& settings, const ShowState& show,
                          bool mirroredDisplay) {
    if (show.BlankState == 1) {
        return PictureClick::None;
    }
    const int type = settings.ControllerType;
    if (button == PictureButton::Right) {
        const bool switches =
            type == controller::RfWireless || (mirroredDisplay && type == controller::Trigger);
        return switches ? PictureClick::ToggleFullScreen : PictureClick::TogglePause;
    }
    if (button == PictureButton::Left && settings.SpeedControllerInUse == 1) {
        return show.PauseState == pause::BeforeStart ? PictureClick::TogglePause
                                                     : PictureClick::Reverse;
    }
    return PictureClick::None;
}

SpeedPointer::SpeedPointer(Session& session, ShowActions& actions)
    : m_session(session), m_actions(actions) {}

void SpeedPointer::begin(QWidget& picture) {
    released();
    if (m_session.settings.SpeedControllerInUse == 1) {
        m_session.platform.pointer.confine(picture);
        m_session.platform.pointer.hide(picture);
    }
}

void SpeedPointer::end() {
    released();
    if (m_session.settings.SpeedControllerInUse == 1) {
        m_session.platform.pointer.release();
    }
}

void SpeedPointer::moved(const PointerMove& move) {
    const bool steering = m_session.settings.SpeedControllerInUse == 1;
    if (m_session.show.BlankState == 1) {
        // Where the pointer has strayed under the blank screen, the next move starts afresh.
        released();
    } else if (steering) {
        steer(move);
    } else if (move.leftHeld) {
        dragSpeed(move);
    } else if (move.otherHeld && isFullRange(m_session.settings.ScrollSpeedControl)) {
        dragDirection(move);
    }
}

void SpeedPointer::released() {
    MouseAnchorX = 0;
    MouseAnchorY = 0;
    MouseSkipNextMove = 0;
}

void SpeedPointer::steer(const PointerMove& move) {
    QPointF reference(MouseAnchorX, MouseAnchorY);
    if (MouseSkipNextMove == 1) {
        // The echo itself is the move to the anchor. A move that was on its way before the pointer
        // was put back, or that comes though it was not, starts from where the pointer was.
        const bool echo = rounded(move.position.x()) == MouseAnchorX &&
                          rounded(move.position.y()) == MouseAnchorY;
        const bool notPutBack =
            squaredDistance(move.position, m_movedFrom) < squaredDistance(move.position, reference);
        MouseSkipNextMove = 0;
        if (echo) {
            return;
        }
        if (notPutBack) {
            reference = m_movedFrom;
        }
    } else {
        setMissingAnchors(move.position);
        reference = QPointF(MouseAnchorX, MouseAnchorY);
    }
    const double left = beyondDeadPixels(reference.x() - move.position.x());
    const double down = beyondDeadPixels(move.position.y() - reference.y());
    double speed = m_session.settings.ScrollSpeed;
    for (const double pixels : {left, down}) {
        if (pixels != 0) {
            speed = clampSpeed(std::floor(speed + pixels * SpeedPerSteeredPixel));
        }
    }
    if (left != 0 || down != 0) {
        m_actions.setSpeed(speed);
    }
    putBack(move);
}

/// Puts the pointer into the middle of the picture, or takes its place as the new reference where
/// the platform does not move it: then the next move is a real one.
void SpeedPointer::putBack(const PointerMove& move) {
    MouseAnchorX = move.picture.width() / 2;
    MouseAnchorY = move.picture.height() / 2;
    m_movedFrom = move.position;
    const QPoint middle = move.picture.topLeft() + QPoint(MouseAnchorX, MouseAnchorY);
    if (m_session.platform.pointer.moveTo(middle)) {
        MouseSkipNextMove = 1;
    } else {
        MouseAnchorX = rounded(move.position.x());
        MouseAnchorY = rounded(move.position.y());
    }
}

void SpeedPointer::dragSpeed(const PointerMove& move) {
    setMissingAnchors(move.position);
    const double left = beyondDeadPixels(MouseAnchorX - move.position.x());
    const double down = beyondDeadPixels(move.position.y() - MouseAnchorY);
    if (left != 0) {
        MouseAnchorX = rounded(move.position.x());
        m_actions.setSpeed(m_session.settings.ScrollSpeed + left);
    }
    if (down != 0) {
        MouseAnchorY = rounded(move.position.y());
        m_actions.setSpeed(m_session.settings.ScrollSpeed + down);
    }
}

void SpeedPointer::dragDirection(const PointerMove& move) {
    setMissingAnchors(move.position);
    const double down = move.position.y() - MouseAnchorY;
    if (std::abs(down) <= TurnPixels) {
        return;
    }
    ShowState& show = m_session.show;
    show.requestTurn(down < 0 ? 1 : -1);
    MouseAnchorY = rounded(move.position.y());
    show.PauseState = 0;
}

void SpeedPointer::setMissingAnchors(QPointF position) {
    if (MouseAnchorX == 0) {
        MouseAnchorX = rounded(position.x());
    }
    if (MouseAnchorY == 0) {
        MouseAnchorY = rounded(position.y());
    }
}

} // namespace velmora
