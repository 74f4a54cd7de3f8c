#pragma once

#include "display/control_row.h"
#include "display/display_geometry.h"
#include "display/display_traits.h"
#include "display/frame_composer.h"
#include "display/operator_keys.h"
#include "display/script_preparation.h"
#include "display/show_navigation.h"
#include "display/show_screen.h"
#include "display/text_window.h"
#include "platform/timing/refresh_presenter.h"
#include "widgets/up_down.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QWidget>

#include <memory>

namespace velmora {

class Session;
class ShowObserver;

/// Picture3: the strip left of the text that holds the cue arrow.
class ArrowStrip final : public QWidget {
    Q_OBJECT
public:
    explicit ArrowStrip(QWidget* parent = nullptr);
    void setBackground(QRgb color);
    /// Top of the arrow, in pixels of the strip.
    void setArrow(int top);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRgb m_background = 0xff000000;
    int m_top = 0;
};

/// The body of every display window: set-up, the loop, keys, leaving. Owned by the hand-over, which
/// destroys it after load() has returned; nothing destroys it before.
class DisplayWindow : public QWidget, public ShowScreen, public OperatorActions {
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
    void showDirection(int direction) override;
    void hideNotice() override;
    void showPicture() override;
    void focusPicture() override;

    // OperatorActions
    void moveSpeedIndicator() override;
    void jumpToLine(int line) override;
    [[nodiscard]] int lastScrollValue() const override;
    void toggleBlank() override;
    void toggleArrow() override;
    void toggleFullScreen() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createControls();
    void connectControls();
    void keepInFront(QWindow* focused);
    void prepare();
    void layOut();
    void placeControls();
    void showControls();
    void setRanges();
    void showOnDisplay();
    void paintPicture();
    void leave();

    void Picture1_KeyDown(int& keyCode);
    void Vscroll1_Change(int value);
    void Vscroll2_Change(int value);
    void Picture6_MouseDown(int x);
    void Command3_Click();

    Session& m_session;
    DisplayTraits m_traits;
    ShowObserver* m_observer;

    TextWindow* Picture1 = nullptr;
    ArrowStrip* Picture3 = nullptr;
    ShowMark* Picture4 = nullptr;
    ShowMark* Picture5 = nullptr;
    SpeedScale* Picture6 = nullptr;
    ShowMark* Picture7 = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QLabel* Label6 = nullptr;
    QScrollBar* Vscroll1 = nullptr;
    UpDown* Vscroll2 = nullptr;
    QPushButton* Command3 = nullptr;

    /// Rectangle of display 1; its size is the screen of all layout here.
    QRect m_display;
    double FontScale = 1;
    /// Lines of the script that the show holds.
    int ScriptLineCount = 0;
    ShowTables m_tables;
    DisplayGeometry m_geometry;
    GlyphMaskCache m_masks;
    FrameComposer m_composer;
    std::unique_ptr<ShowNavigation> m_navigation;
    std::unique_ptr<RefreshPresenter> m_presenter;
    OperatorKeys m_keys;
    /// The display's own picture of a direction, which full screen hides.
    int m_shownDirection = 1;
};

} // namespace velmora
