#pragma once

#include <QPointF>
#include <QRect>

class QWidget;

namespace velmora {

class Session;
class ShowActions;
struct Settings;
struct ShowState;

/// A move of the pointer over Picture1.
struct PointerMove final {
    /// Place in Picture1, in pixels.
    QPointF position;
    bool leftHeld = false;
    /// Any button but the left one.
    bool otherHeld = false;
    /// Picture1 on the desktop, in pixels.
    QRect picture;
};

/// What a press on Picture1 asks for.
enum class PictureClick { None, TogglePause, Reverse, ToggleFullScreen };
enum class PictureButton { Left, Right, Other };

/// The act of a press. mirroredDisplay is true in the windows that are read in a mirror, where the
/// trigger controller too switches full screen with its right button.
[[nodiscard]] PictureClick pictureClick(PictureButton button, const Settings& settings,
                                        const ShowState& show, bool mirroredDisplay);

/// What moves of the pointer over Picture1 do to the speed. With a mouse-like controller each move
/// counts, and the pointer is put back into the middle of Picture1; with a plain mouse only drags
/// count. One for each show.
class SpeedPointer final {
public:
    SpeedPointer(Session& session, ShowActions& actions);

    /// Confines and hides the pointer where a mouse-like controller is in use. To be called when
    /// the picture has its size and is visible, and again after each change of that.
    void begin(QWidget& picture);
    /// Gives the pointer back.
    void end();

    /// Picture1_MouseMove.
    void moved(const PointerMove& move);
    /// Picture1_MouseUp, of any button.
    void released();

private:
    void steer(const PointerMove& move);
    void putBack(const PointerMove& move);
    void dragSpeed(const PointerMove& move);
    void dragDirection(const PointerMove& move);
    void setMissingAnchors(QPointF position);

    Session& m_session;
    ShowActions& m_actions;
    /// Last reference point in Picture1, 0 for none.
    int MouseAnchorX = 0;
    int MouseAnchorY = 0;
    /// 1 from the program's own move of the pointer until its echo has come.
    int MouseSkipNextMove = 0;
    /// Where the pointer was when the program moved it.
    QPointF m_movedFrom;
};

} // namespace velmora
