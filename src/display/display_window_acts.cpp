// DisplayWindow: what the loop, the keys and the controls of a running show have it do.
#include "display/display_window.h"

#include "core/number_format.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "display/show_find.h"
#include "display/speaker_window.h"
#include "display/timed_loop.h"
#include "platform/devices/key_numbers.h"
#include "platform/timing/clock.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include <algorithm>

namespace velmora {

void DisplayWindow::setElapsedText(const QString& text) {
    m_controls.Label1->setText(text);
}

void DisplayWindow::setRemainingText(const QString& text) {
    m_controls.Label4->setText(text);
}

void DisplayWindow::setScrollValue(int line) {
    if (m_controls.Vscroll1->isSliderDown()) {
        // The thumb is in the operator's hand.
        return;
    }
    m_session.show.SuppressScrollEvent = 1;
    m_controls.Vscroll1->setValue(line);
    m_session.show.SuppressScrollEvent = 0;
}

void DisplayWindow::moveSpeedIndicator() {
    m_controls.Picture6->setSpeed(m_session.settings.ScrollSpeed);
}

void DisplayWindow::showPicture() {
    Picture1->show();
    pictureInCharge().window()->activateWindow();
    focusPicture();
    m_pointer->catchPointer();
}

void DisplayWindow::focusPicture() {
    pictureInCharge().setFocus();
}

void DisplayWindow::addBookmark() {
    if (m_navigation->bookmarks().add(m_navigation->takeTopLine())) {
        m_session.show.MessageShownAt = m_session.platform.clock.Timer();
        showState();
    }
}

void DisplayWindow::find() {
    m_find->find(pictureInCharge(), faceInCharge());
    focusPicture();
}

void DisplayWindow::findNext() {
    m_find->findNext();
}

void DisplayWindow::toggleBlank() {
    // Before anything yields, so that no step can draw into the blank screen.
    m_session.show.BlankState = m_session.show.BlankState == 0 ? 1 : 0;
    const bool blank = m_session.show.BlankState == 1;
    Picture1->setBlank(blank);
    if (m_speaker) {
        m_speaker->Picture1->setBlank(blank);
    }
    showState();
}

void DisplayWindow::toggleArrow() {
    m_session.settings.ArrowVisible = m_session.settings.ArrowVisible == 1 ? 0 : 1;
    showState();
}

void DisplayWindow::toggleFullScreen() {
    m_session.settings.FullScreenMode = m_session.settings.FullScreenMode == 0 ? 1 : 0;
    placeControls();
    showState();
    m_pointer->catchPointer();
}

void DisplayWindow::startOrReset() {
    ShowState& show = m_session.show;
    show.PauseState = 0;
    if (show.AwaitingStart == 1) {
        show.AwaitingStart = 0;
    } else if (show.ExitRequested == 0) {
        show.ExitRequested = TimedLoop::ResetRequested;
    }
    focusPicture();
}

void DisplayWindow::changeDuration(int seconds) {
    m_controls.Hscroll1->setValue(m_controls.Hscroll1->value() + seconds);
}

void DisplayWindow::setSpeed(double scrollSpeed) {
    m_steering.setSpeed(scrollSpeed);
}

void DisplayWindow::closeEvent(QCloseEvent* event) {
    // The loop stands on this window: closing it only asks the loop to leave.
    m_steering.leave();
    event->ignore();
}

bool DisplayWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &pictureInCharge() && event->type() == QEvent::KeyPress) {
        const auto* keyEvent = static_cast<QKeyEvent*>(event);
        int keyCode = virtualKey(*keyEvent);
        int shift = shiftState(*keyEvent);
        const bool plain =
            (shift & ~key::Shift) == 0 && !keyEvent->modifiers().testFlag(Qt::MetaModifier);
        if (plain && (!keyEvent->isAutoRepeat() || m_keys->repeats(keyCode, shift))) {
            Picture1_KeyDown(keyCode, shift);
        }
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// The single door of all keys, the pedal's and the shuttle's too.
void DisplayWindow::Picture1_KeyDown(int& keyCode, int& shift) {
    m_keys->keyDown(keyCode, shift);
    focusPicture();
}

/// Arrows and trough act from the line that is on top, not from the leading edge that the bar
/// tells.
void DisplayWindow::Vscroll1_Action(int action) {
    QScrollBar& bar = *m_controls.Vscroll1;
    int lines = 0;
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        lines = bar.singleStep();
        break;
    case QAbstractSlider::SliderSingleStepSub:
        lines = -bar.singleStep();
        break;
    case QAbstractSlider::SliderPageStepAdd:
        lines = bar.pageStep();
        break;
    case QAbstractSlider::SliderPageStepSub:
        lines = -bar.pageStep();
        break;
    default:
        return;
    }
    bar.setSliderPosition(m_navigation->takeTopLine() + lines);
}

/// A thumb that is dragged moves the text by as much as itself; its ends are those of the script.
void DisplayWindow::Vscroll1_Change(int value) {
    if (m_session.show.SuppressScrollEvent == 0) {
        const QScrollBar& bar = *m_controls.Vscroll1;
        if (bar.isSliderDown() && value != bar.minimum() && value != bar.maximum()) {
            value = std::clamp(value - m_thumbAhead, bar.minimum(), bar.maximum());
        }
        m_navigation->reposition(value);
        m_presenter->presentNow();
    }
    focusPicture();
}

void DisplayWindow::Vscroll2_Change(int value) {
    m_session.settings.ArrowPosition = value;
    placeArrow();
    focusPicture();
}

/// ArrowPosition is its top, in pixels of the display of the start.
void DisplayWindow::placeArrow() {
    const int point =
        m_session.settings.ArrowPosition + controlLength(CueArrowPoint, m_layout.screenWidth);
    m_controls.Picture3->setPoint(point);
    if (m_speaker) {
        m_speaker->Picture3->setPoint(point);
    }
}

void DisplayWindow::Hscroll1_Change(int value) {
    m_session.settings.TimedDisplaySeconds = value;
    m_controls.Label3->setText(clockText(value));
    m_pace.change(value);
    focusPicture();
}

void DisplayWindow::mousePressEvent(QMouseEvent*) {
    focusPicture();
}

void DisplayWindow::wheelEvent(QWheelEvent* event) {
    // The preparation pumps before there is anything to steer.
    if (m_pointer) {
        m_pointer->turnWheel(*event);
    }
}

} // namespace velmora
