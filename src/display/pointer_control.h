#pragma once

#include "controllers/speed_pointer.h"
#include "display/display_traits.h"

#include <QObject>

class QMouseEvent;
class QWheelEvent;

namespace velmora {

class OperatorActions;
class Session;
class ShowActions;
class ShowSteering;
class SpeedScale;
class TextWindow;

/// The pointer of a show: presses, drags and the wheel over the text, and the speed scale. Owned by
/// the display window.
class PointerControl final : public QObject {
    Q_OBJECT
public:
    struct Parts final {
        Session& session;
        ShowSteering& steering;
        OperatorActions& actions;
        ShowActions& devices;
        TextWindow& Picture1;
        SpeedScale& Picture6;
    };
    PointerControl(const Parts& parts, const DisplayTraits& traits);
    ~PointerControl() override;

    /// Catches the pointer where a controller acts as a mouse and steers the show; again after
    /// Picture1 has moved.
    void catchPointer();
    /// From now on it is another picture that the pointer is over.
    void moveTo(TextWindow& picture);
    /// Gives the pointer back.
    void freePointer();
    /// The wheel, wherever in the window.
    void turnWheel(const QWheelEvent& event);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(TextWindow& picture);
    bool pictureEvent(QEvent* event);
    void Picture1_MouseDown(const QMouseEvent& event);
    void Picture1_MouseMove(const QMouseEvent& event);
    void Picture6_MouseDown(double x);

    Session& m_session;
    Parts m_parts;
    TextWindow* m_picture = nullptr;
    DisplayTraits m_traits;
    SpeedPointer m_speedPointer;
};

} // namespace velmora
