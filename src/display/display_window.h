#pragma once

#include "controllers/show_actions.h"
#include "display/display_controls.h"
#include "display/display_geometry.h"
#include "display/display_traits.h"
#include "display/frame_composer.h"
#include "display/operator_keys.h"
#include "display/place_on_display.h"
#include "display/pointer_control.h"
#include "display/script_preparation.h"
#include "display/show_loop.h"
#include "display/show_navigation.h"
#include "display/show_screen.h"
#include "display/show_steering.h"
#include "display/text_window.h"
#include "display/timed_pace.h"
#include "platform/timing/refresh_presenter.h"

#include <QWidget>

#include <memory>

namespace velmora {

class FootPedal;
class PointerRest;
class Session;
class ShowFind;
class ShowObserver;
class SpeakerScriptM;

/// The body of every display window: set-up, the loop, its acts, leaving. Owned by the hand-over,
/// which destroys it after load() has returned; nothing destroys it before.
class DisplayWindow : public QWidget,
                      public ShowScreen,
                      public OperatorActions,
                      public ShowActions {
    Q_OBJECT
public:
    DisplayWindow(Session& session, const DisplayTraits& traits, ShowObserver* observer);
    ~DisplayWindow() override;

    /// Runs the whole show; returns when it is over, with ShowTopLine set.
    void load();

    // ShowScreen
    void setElapsedText(const QString& text) override;
    void setRemainingText(const QString& text) override;
    void setScrollValue(int line) override;
    void moveSpeedIndicator() override;
    void showState() override;
    void showPicture() override;
    void focusPicture() override;

    // OperatorActions
    void addBookmark() override;
    void find() override;
    void findNext() override;
    void toggleBlank() override;
    void toggleArrow() override;
    void toggleFullScreen() override;
    void startOrReset() override;
    void changeDuration(int seconds) override;

    // ShowActions
    void Picture1_KeyDown(int& keyCode, int& shift) override;
    void setSpeed(double scrollSpeed) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool findDisplays();
    [[nodiscard]] bool prepare();
    void prepareTables();
    void startComposer();
    void layOut();
    void placeControls();
    void placeArrow();
    void setRanges();
    void openSpeakerWindow();
    void createSteering();
    void connectControls();
    void followDisplays();
    void takePlace();
    [[nodiscard]] TextWindow& pictureInCharge() const;
    [[nodiscard]] Orientation faceInCharge() const;
    [[nodiscard]] double refreshRate() const;
    void watchDisplays();
    void keepInFront(QWindow* focused);
    void paintPicture();
    void runLoop();
    void leave();

    void Vscroll1_Change(int value);
    void Vscroll1_Action(int action);
    void Vscroll2_Change(int value);
    void Hscroll1_Change(int value);

    Session& m_session;
    DisplayTraits m_traits;
    ShowObserver* m_observer;

    TextWindow* Picture1 = nullptr;
    DisplayControls m_controls;
    /// By how many lines Vscroll1's value was ahead of the line on top when its thumb was taken.
    int m_thumbAhead = 0;
    /// Null without a second display.
    std::unique_ptr<SpeakerScriptM> m_speaker;

    /// The operator's place, display 1 at the start.
    DisplayPlace m_display;
    /// The speaker's place, SpeakerRect; empty without a second display.
    DisplayPlace m_speakerDisplay;
    /// Sizes at the start, which hold for the whole show whatever becomes of the displays.
    GeometryInput m_layout;
    double FontScale = 1;
    /// Lines of the script that the show holds.
    int ScriptLineCount = 0;
    ShowTables m_tables;
    DisplayGeometry m_geometry;
    GlyphMaskCache m_masks;
    FrameComposer m_composer;
    TimedPace m_pace;
    ShowSteering m_steering;
    std::unique_ptr<RefreshPresenter> m_presenter;
    std::unique_ptr<ShowNavigation> m_navigation;
    std::unique_ptr<OperatorKeys> m_keys;
    std::unique_ptr<PointerControl> m_pointer;
    std::unique_ptr<PointerRest> m_pointerRest;
    std::unique_ptr<FootPedal> m_pedal;
    std::unique_ptr<ShowFind> m_find;
};

} // namespace velmora
