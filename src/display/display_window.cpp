#include "display/display_window.h"

#include "controllers/speed_mapping.h"
#include "core/arrangement.h"
#include "core/display_rects.h"
#include "core/session.h"
#include "display/cue_arrow.h"
#include "display/font_scale.h"
#include "display/preparation_window.h"
#include "display/scroll_loop.h"
#include "platform/desktop/message_boxes.h"
#include "platform/desktop/monitors.h"
#include "platform/desktop/screens.h"
#include "platform/devices/key_numbers.h"
#include "platform/drawing/color.h"
#include "platform/timing/event_pump.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QSignalBlocker>
#include <QWindow>

#include <algorithm>

namespace velmora {

namespace {

constexpr int ClockPoints = 12;
constexpr int CaptionPoints = 8;
constexpr int DotsPerInch = 96;
/// Screens whose glyphs are rendered before the first picture.
constexpr int WarmScreens = 2;

QFont labelFont(int points) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(points * DotsPerInch / 72);
    return font;
}

QLabel* createLabel(QWidget* parent, const QString& text, int points) {
    auto* label = new QLabel(text, parent);
    label->setFont(labelFont(points));
    return label;
}

} // namespace

ArrowStrip::ArrowStrip(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ArrowStrip::setBackground(QRgb color) {
    m_background = color;
}

void ArrowStrip::setArrow(int top) {
    m_top = top;
    update();
}

void ArrowStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(m_background));
    drawCueArrow(painter, m_top);
}

DisplayWindow::DisplayWindow(Session& session, const DisplayTraits& traits, ShowObserver* observer)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), m_session(session), m_traits(traits),
      m_observer(observer), m_composer(m_masks), m_keys(session, *this) {
    setWindowTitle(QStringLiteral("Velmora Display"));
    createControls();
}

DisplayWindow::~DisplayWindow() = default;

void DisplayWindow::createControls() {
    Picture1 = new TextWindow(this);
    Picture1->hide();
    Picture3 = new ArrowStrip(this);
    Picture4 = new ShowMark(ShowMark::Kind::Forward, this);
    Picture5 = new ShowMark(ShowMark::Kind::Backward, this);
    Picture6 = new SpeedScale(this);
    Picture7 = new ShowMark(ShowMark::Kind::Notice, this);
    Picture7->hide();
    Label1 = createLabel(this, QStringLiteral("00:00"), ClockPoints);
    Label4 = createLabel(this, QStringLiteral("00:00"), ClockPoints);
    Label6 = createLabel(this, QStringLiteral("Elapsed:"), CaptionPoints);
    Label5 = createLabel(this, QStringLiteral("Remaining:"), CaptionPoints);
    Vscroll1 = new QScrollBar(Qt::Vertical, this);
    Vscroll2 = new UpDown(this);
    Command3 = new QPushButton(QStringLiteral("Exit"), this);
    for (QWidget* control : {static_cast<QWidget*>(Vscroll1), static_cast<QWidget*>(Command3)}) {
        control->setFocusPolicy(Qt::NoFocus);
        // A context menu is a loop of its own, in which the show would stand still.
        control->setContextMenuPolicy(Qt::NoContextMenu);
    }
}

void DisplayWindow::load() {
    m_session.settings.RowStep = m_session.settings.ScrollerTurbo == 1 ? 2 : 1;
    m_session.show.BlankState = 0;
    m_session.show.PauseState = 3;
    if (m_session.settings.MirrorMode != mirror::OneDisplay) {
        GetDisplayRect(m_session, 2);
        if (!displayFound(m_session)) {
            m_session.platform.messages.show(
                MessageIcon::Critical, QStringLiteral("Display 2 Not Available"),
                QStringLiteral("I can only detect 1 available display.  Please enable Display 2 "
                               "using the Display Properties Settings menu."),
                MessageButtons::Ok);
            return;
        }
    }
    GetDisplayRect(m_session, 1);
    const DisplayState& displays = m_session.displays;
    m_display = QRect(displays.DisplayLeft, displays.DisplayTop, displays.DisplayWidth,
                      displays.DisplayHeight);
    if (m_display.isEmpty()) {
        m_display = QRect(QPoint(0, 0), m_session.platform.monitors.primarySize());
    }
    prepare();
    connectControls();
    const ScrollLoopParts parts{m_session,     *this,        m_tables,  m_composer,
                                *m_navigation, *m_presenter, m_observer};
    ScrollLoop loop(parts, m_geometry.textRows());
    loop.run();
    leave();
}

/// Line count, scale and colours first, then the geometry, then the ranges, then the tables.
void DisplayWindow::prepare() {
    RichTextBox& rtb1 = m_session.script.rtb1;
    ScriptLineCount = std::min(rtb1.lineCount(), MaxScriptLines);
    FontScale = fitScriptScale(m_session.show.ScriptRtf, m_display.width()).FontScale;
    layOut();
    setRanges();
    showOnDisplay();

    Form23 progress(preparationText(ScriptLineCount), this);
    progress.show();
    m_session.platform.pump.DoEvents();
    const PreparationInput input{ScriptLineCount, FontScale, m_session.settings.LineSpacingIndex,
                                 0};
    m_tables = prepareScript(rtb1, input, [&](int done) {
        progress.setProgress(done);
        m_session.platform.pump.DoEvents();
    });
    rtb1.setSelStart(0);

    FrameSource source;
    source.rtb2 = &rtb1;
    source.tables = &m_tables;
    source.FontScale = FontScale;
    source.WindowWidth = m_geometry.WindowWidth();
    source.textRows = m_geometry.textRows();
    source.TextAlignment = rtb1.SelAlignment().value_or(Alignment::Left);
    m_composer.begin(source);
    m_composer.addOutput(Picture1->surface(), m_traits.operatorPicture);
    const ShowState& show = m_session.show;
    const int startLine = show.StartFromCursor == 0 ? 0 : static_cast<int>(show.StartPosition);
    m_composer.warmUp(m_tables.scanTable.firstRowOfLine(startLine),
                      WarmScreens * m_geometry.textRows());
    m_navigation =
        std::make_unique<ShowNavigation>(m_session, m_tables, m_composer, m_geometry.textRows());
    m_presenter = std::make_unique<RefreshPresenter>(
        m_session.platform.clock, m_session.platform.monitors.refreshRate(m_display),
        [this] { paintPicture(); });
    if (m_observer != nullptr) {
        m_observer->showPrepared(m_tables, m_geometry, *this);
    }
}

void DisplayWindow::layOut() {
    const QRgb background = toPixel(m_session.script.rtb1.BackColor());
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor::fromRgb(background));
    colours.setColor(QPalette::WindowText,
                     m_session.script.rtb1.BackColor() == White ? Qt::black : Qt::white);
    setPalette(colours);
    Picture1->setBackground(background);
    Picture3->setBackground(background);
    Picture6->setRange(m_session.settings.ScrollSpeedControl);
    placeControls();
    showControls();
}

void DisplayWindow::placeControls() {
    const GeometryInput input{m_display.width(), m_display.height(),
                              m_session.script.rtb1.wrapWidth(), FontScale,
                              m_session.settings.FullScreenMode};
    m_geometry = layOutDisplay(input);
    Picture1->setGeometry(m_geometry.Picture1);
    Picture3->setGeometry(m_geometry.Picture3);
    for (QWidget* mark : {Picture4, Picture5, Picture7}) {
        mark->setGeometry(m_geometry.directionMark);
    }
    Picture6->setGeometry(m_geometry.Picture6);
    Label1->setGeometry(m_geometry.Label1);
    Label4->setGeometry(m_geometry.Label4);
    Label5->setGeometry(m_geometry.Label5);
    Label6->setGeometry(m_geometry.Label6);
    Vscroll1->setGeometry(m_geometry.Vscroll1);
    Vscroll2->setGeometry(m_geometry.Vscroll2);
    Command3->setGeometry(m_geometry.Command3);
}

/// What is in sight follows from the settings and the show's state alone.
void DisplayWindow::showControls() {
    const bool blank = m_session.show.BlankState == 1;
    const bool controls = m_session.settings.FullScreenMode == 0 && !blank;
    const bool notice = m_session.show.MessageShownAt != 0;
    for (QWidget* control : std::initializer_list<QWidget*>{Picture6, Label1, Label4, Label5,
                                                            Label6, Vscroll1, Vscroll2, Command3}) {
        control->setVisible(controls);
    }
    Picture4->setVisible(controls && m_shownDirection > 0);
    Picture5->setVisible(controls && m_shownDirection < 0);
    Picture7->setVisible(controls && notice);
    Picture7->raise();
    Picture3->setVisible(m_session.settings.ArrowVisible == 1 && !blank);
}

void DisplayWindow::setRanges() {
    Settings& settings = m_session.settings;
    const QSignalBlocker silentBar(Vscroll1);
    const QSignalBlocker silentArrow(Vscroll2);
    Vscroll1->setRange(0, ScriptLineCount);
    Vscroll1->setPageStep(std::max(1, ScriptLineCount / 20));
    Vscroll1->setValue(0);
    Vscroll2->setRange(0, m_geometry.Picture3.height() - CueArrowHeight);
    Vscroll2->setValue(settings.ArrowPosition);
    Vscroll2_Change(Vscroll2->value());
    settings.ScrollSpeed = speedAtShowStart(settings.ScrollSpeed, settings.ScrollSpeedControl);
    moveSpeedIndicator();
}

void DisplayWindow::showOnDisplay() {
    setGeometry(m_display);
    if (QScreen* screen = screenAt(m_display)) {
        setScreen(screen);
        setGeometry(m_display);
        showFullScreen();
    } else {
        setWindowFlag(Qt::WindowStaysOnTopHint);
        show();
    }
    raise();
    activateWindow();
}

void DisplayWindow::connectControls() {
    Picture1->installEventFilter(this);
    connect(Vscroll1, &QScrollBar::valueChanged, this, &DisplayWindow::Vscroll1_Change);
    connect(Vscroll2, &UpDown::valueChanged, this, &DisplayWindow::Vscroll2_Change);
    connect(Command3, &QPushButton::clicked, this, &DisplayWindow::Command3_Click);
    connect(Picture6, &SpeedScale::pressed, this, &DisplayWindow::Picture6_MouseDown);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &DisplayWindow::keepInFront);
}

/// The editor beneath is disabled: brought to the front by the desktop it would hide a running show
/// that no key reaches any more.
void DisplayWindow::keepInFront(QWindow* focused) {
    if (focused != nullptr && focused != windowHandle() &&
        QApplication::activeModalWidget() == nullptr) {
        raise();
        activateWindow();
    }
}

void DisplayWindow::paintPicture() {
    Picture1->repaint();
}

void DisplayWindow::leave() {
    setElapsedText(QString());
    setRemainingText(QString());
    m_session.show.ShowTopLine = m_navigation->returnLine();
}

void DisplayWindow::setElapsedText(const QString& text) {
    Label1->setText(text);
}

void DisplayWindow::setRemainingText(const QString& text) {
    Label4->setText(text);
}

void DisplayWindow::setScrollValue(int line) {
    m_session.show.SuppressScrollEvent = 1;
    Vscroll1->setValue(line);
    m_session.show.SuppressScrollEvent = 0;
}

void DisplayWindow::showDirection(int direction) {
    m_shownDirection = direction;
    showControls();
}

void DisplayWindow::hideNotice() {
    m_session.show.MessageShownAt = 0;
    showControls();
}

void DisplayWindow::showPicture() {
    Picture1->show();
    activateWindow();
    focusPicture();
}

void DisplayWindow::focusPicture() {
    Picture1->setFocus();
}

void DisplayWindow::moveSpeedIndicator() {
    Picture6->setSpeed(m_session.settings.ScrollSpeed);
}

void DisplayWindow::jumpToLine(int line) {
    setScrollValue(line);
    Vscroll1_Change(Vscroll1->value());
}

int DisplayWindow::lastScrollValue() const {
    return Vscroll1->maximum();
}

void DisplayWindow::toggleBlank() {
    // Before anything yields, so that no step can draw into the blank screen.
    m_session.show.BlankState = m_session.show.BlankState == 0 ? 1 : 0;
    Picture1->setBlank(m_session.show.BlankState == 1);
    showControls();
}

void DisplayWindow::toggleArrow() {
    m_session.settings.ArrowVisible = m_session.settings.ArrowVisible == 1 ? 0 : 1;
    showControls();
}

void DisplayWindow::toggleFullScreen() {
    m_session.settings.FullScreenMode = m_session.settings.FullScreenMode == 0 ? 1 : 0;
    placeControls();
    showControls();
}

void DisplayWindow::closeEvent(QCloseEvent* event) {
    // The loop stands on this window: closing it only asks the loop to leave.
    m_session.show.ExitRequested = 1;
    event->ignore();
}

bool DisplayWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture1 && event->type() == QEvent::KeyPress) {
        const auto* keyEvent = static_cast<QKeyEvent*>(event);
        int keyCode = virtualKey(*keyEvent);
        // A key held down repeats a change of speed, not a toggle or a jump.
        const bool repeats = keyCode >= key::End && keyCode <= key::Down;
        const bool plain = (keyEvent->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
        if (plain && (!keyEvent->isAutoRepeat() || repeats)) {
            Picture1_KeyDown(keyCode);
        }
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DisplayWindow::Picture1_KeyDown(int& keyCode) {
    m_keys.keyDown(keyCode);
    focusPicture();
}

void DisplayWindow::Vscroll1_Change(int value) {
    if (m_session.show.SuppressScrollEvent == 0) {
        m_navigation->reposition(value);
        m_presenter->presentNow();
    }
    focusPicture();
}

void DisplayWindow::Vscroll2_Change(int value) {
    m_session.settings.ArrowPosition = value;
    Picture3->setArrow(value);
    focusPicture();
}

void DisplayWindow::Picture6_MouseDown(int x) {
    switch (SpeedScale::partAt(x)) {
    case SpeedScale::Part::Start:
        m_session.show.PauseState = 0;
        break;
    case SpeedScale::Part::Pause:
        m_keys.togglePause();
        break;
    case SpeedScale::Part::Scale:
        m_session.settings.ScrollSpeed = SpeedScale::speedAt(x);
        moveSpeedIndicator();
        break;
    case SpeedScale::Part::None:
        break;
    }
    focusPicture();
}

void DisplayWindow::mousePressEvent(QMouseEvent*) {
    focusPicture();
}

void DisplayWindow::Command3_Click() {
    m_session.show.ExitRequested = 1;
    focusPicture();
}

} // namespace velmora
