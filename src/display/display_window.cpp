#include "display/display_window.h"

#include "controllers/foot_pedal.h"
#include "controllers/speed_mapping.h"
#include "core/number_format.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "core/two_display_check.h"
#include "display/bookmark_question.h"
#include "display/font_scale.h"
#include "display/place_on_display.h"
#include "display/pointer_rest.h"
#include "display/preparation_window.h"
#include "display/scroll_loop.h"
#include "display/show_find.h"
#include "display/show_observer.h"
#include "display/speaker_window.h"
#include "display/timed_loop.h"
#include "platform/desktop/message_boxes.h"
#include "platform/drawing/color.h"
#include "platform/timing/clock.h"
#include "platform/timing/event_pump.h"

#include <QGuiApplication>
#include <QSignalBlocker>
#include <QWindow>

#include <algorithm>

namespace velmora {

namespace {

/// Screens whose glyphs are rendered before the first picture.
constexpr int WarmScreens = 2;
constexpr int DurationStep = 10;

} // namespace

DisplayWindow::DisplayWindow(Session& session, const DisplayTraits& traits, ShowObserver* observer)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), m_session(session), m_traits(traits),
      m_observer(observer), Picture1(new TextWindow(this)), m_controls(traits, this),
      m_composer(m_masks), m_pace(session.platform.clock.frequency()), m_steering(session, *this) {
    setWindowTitle(QStringLiteral("Velmora Display"));
    Picture1->hide();
}

DisplayWindow::~DisplayWindow() = default;

void DisplayWindow::load() {
    m_session.settings.RowStep = rowStepOf(m_session.settings.ScrollerTurbo);
    m_session.show.BlankState = 0;
    m_session.show.PauseState = pause::BeforeStart;
    if (!findDisplays()) {
        m_session.platform.messages.show(
            MessageIcon::Critical, displayMissingTitle(),
            QStringLiteral("I can only detect 1 available display.  Please enable Display 2 "
                           "using the Display Properties Settings menu."),
            MessageButtons::Ok);
        return;
    }
    if (!prepare()) {
        return;
    }
    connectControls();
    runLoop();
    leave();
}

/// Line count, scale and colours first, then the geometry, then the ranges, then the tables. False
/// where the operator left meanwhile.
bool DisplayWindow::prepare() {
    ScriptLineCount = std::min(m_session.script.rtb1.lineCount(), MaxScriptLines);
    FontScale = fitScriptScale(m_session.show.ScriptRtf, m_display.home.width()).FontScale;
    layOut();
    setRanges();
    fillDisplay(*this, m_display.now);
    activateWindow();
    if (!m_speakerDisplay.home.isEmpty()) {
        openSpeakerWindow();
    }
    prepareTables();
    if (m_session.show.ExitRequested == 1) {
        return false;
    }
    startComposer();
    createSteering();
    if (m_observer != nullptr) {
        m_observer->showPrepared(m_tables, m_geometry, *this);
    }
    return true;
}

void DisplayWindow::prepareTables() {
    RichTextBox& rtb1 = m_session.script.rtb1;
    Form23 progress(preparationText(ScriptLineCount), this);
    connect(&progress, &Form23::leaveRequested, this, [this] { m_steering.leave(); });
    progress.show();
    m_session.platform.pump.DoEvents();
    PreparationInput input{ScriptLineCount, FontScale, m_session.settings.LineSpacingIndex, 0};
    if (m_traits.timed) {
        // The text enters at the window's foot, so that the set time is that of the whole script.
        input.leadInRows = m_geometry.textRows() - 1;
    }
    m_tables = prepareScript(rtb1, input, [&](int done) {
        progress.setProgress(done);
        m_session.platform.pump.DoEvents();
    });
    rtb1.setSelStart(0);
}

void DisplayWindow::startComposer() {
    const RichTextBox& rtb1 = m_session.script.rtb1;
    FrameSource source;
    source.rtb2 = &rtb1;
    source.tables = &m_tables;
    source.FontScale = FontScale;
    source.WindowWidth = m_geometry.WindowWidth();
    source.textRows = m_geometry.textRows();
    source.TextAlignment = rtb1.SelAlignment().value_or(Alignment::Left);
    m_composer.begin(source);
    m_composer.addOutput(Picture1->surface(), m_traits.face);
    if (m_speaker) {
        m_composer.addOutput(m_speaker->Picture1->surface(), Orientation::Mirrored);
    }
    const ShowState& show = m_session.show;
    const int startLine = show.StartFromCursor == 0 ? 0 : static_cast<int>(show.StartPosition);
    m_composer.warmUp(m_tables.scanTable.firstRowOfLine(startLine),
                      WarmScreens * m_geometry.textRows());
}

/// What handlers and the loop work with once there are tables.
void DisplayWindow::createSteering() {
    m_presenter = std::make_unique<RefreshPresenter>(m_session.platform.clock, refreshRate(),
                                                     [this] { paintPicture(); });
    m_navigation = std::make_unique<ShowNavigation>(ShowNavigation::Parts{
        m_session, m_tables, m_composer, *this, *m_presenter, m_geometry.textRows()});
    m_keys = std::make_unique<OperatorKeys>(
        OperatorKeys::Parts{m_session, m_steering, *m_navigation, *this, *this},
        m_traits.timed ? OperatorKeys::Keyboard::Timed : OperatorKeys::Keyboard::Steered);
    m_pointer = std::make_unique<PointerControl>(
        PointerControl::Parts{m_session, m_steering, *this, *this, *Picture1, *m_controls.Picture6},
        m_traits);
    m_controls.Vscroll1->installEventFilter(m_pointer.get());
    m_pointerRest = std::make_unique<PointerRest>(m_session);
    // A controller's pointer is hidden already.
    if (m_traits.timed || m_session.settings.SpeedControllerInUse == 0) {
        m_pointerRest->watch(*Picture1);
        if (m_speaker) {
            m_pointerRest->watch(*m_speaker->Picture1);
        }
    }
    m_find = std::make_unique<ShowFind>(m_session, *m_navigation);
    m_pedal = std::make_unique<FootPedal>(
        m_session, *this, m_traits.timed ? FootPedal::Buttons::PauseOnly : FootPedal::Buttons::All);
}

void DisplayWindow::layOut() {
    const QRgb background = toPixel(m_session.script.rtb1.BackColor());
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor::fromRgb(background));
    colours.setColor(QPalette::WindowText,
                     m_session.script.rtb1.BackColor() == White ? Qt::black : Qt::white);
    setPalette(colours);
    Picture1->setBackground(background);
    m_controls.Picture3->setBackground(background);
    m_controls.Picture6->setRange(m_session.settings.ScrollSpeedControl);
    m_layout.screenWidth = m_display.home.width();
    m_layout.screenHeight = m_display.home.height();
    m_layout.wrapWidth = m_session.script.rtb1.wrapWidth();
    m_layout.FontScale = FontScale;
    m_layout.traits = m_traits;
    m_layout.secondDisplay = m_speakerDisplay.home.size();
    placeControls();
    showState();
}

void DisplayWindow::placeControls() {
    m_layout.FullScreenMode = m_session.settings.FullScreenMode;
    m_geometry = layOutDisplay(m_layout);
    if (!m_speakerDisplay.now.isEmpty()) {
        layOutSpeaker(m_speakerDisplay.now.size(), m_geometry);
    }
    const QSize atStart(m_layout.screenWidth, m_layout.screenHeight);
    if (!m_display.now.isEmpty() && m_display.now.size() != atStart) {
        moveToDisplay(m_display.now.size(), m_traits, m_geometry);
    }
    Picture1->setGeometry(m_geometry.Picture1);
    m_controls.place(m_geometry);
}

/// What is in sight follows from the settings and the show's state alone.
void DisplayWindow::showState() {
    const ShowState& show = m_session.show;
    const bool blank = show.BlankState == 1;
    ControlsInSight inSight;
    inSight.row = m_session.settings.FullScreenMode == 0 && !blank;
    inSight.arrow = m_session.settings.ArrowVisible == 1 && !blank;
    inSight.pointerCaught = !m_traits.timed && m_session.settings.SpeedControllerInUse == 1;
    inSight.direction = show.comingDirection();
    inSight.notice = show.MessageShownAt != 0;
    inSight.awaitingStart = show.AwaitingStart == 1;
    inSight.running = show.PauseState == 0;
    m_controls.show(inSight);
    if (m_speaker) {
        m_speaker->Picture3->setVisible(inSight.arrow);
    }
}

void DisplayWindow::setRanges() {
    Settings& settings = m_session.settings;
    const QSignalBlocker silentBar(m_controls.Vscroll1);
    const QSignalBlocker silentArrow(m_controls.Vscroll2);
    const QSignalBlocker silentDuration(m_controls.Hscroll1);
    m_controls.Vscroll1->setRange(0, ScriptLineCount);
    m_controls.Vscroll1->setPageStep(std::max(1, ScriptLineCount / 20));
    m_controls.Vscroll1->setValue(0);
    m_controls.Vscroll2->setRange(0, m_geometry.Picture3.height() -
                                         controlLength(CueArrowHeight, m_layout.screenWidth));
    m_controls.Vscroll2->setValue(settings.ArrowPosition);
    Vscroll2_Change(m_controls.Vscroll2->value());
    settings.TimedDisplaySeconds =
        std::clamp(settings.TimedDisplaySeconds, TimedPace::LeastSeconds, TimedPace::MostSeconds);
    m_controls.Hscroll1->setRange(TimedPace::LeastSeconds, TimedPace::MostSeconds);
    m_controls.Hscroll1->setPageStep(DurationStep);
    m_controls.Hscroll1->setSingleStep(DurationStep);
    m_controls.Hscroll1->setValue(settings.TimedDisplaySeconds);
    m_controls.Label3->setText(clockText(settings.TimedDisplaySeconds));
    settings.ScrollSpeed = speedAtShowStart(settings.ScrollSpeed, settings.ScrollSpeedControl);
    moveSpeedIndicator();
}

void DisplayWindow::openSpeakerWindow() {
    m_speaker = std::make_unique<SpeakerScriptM>(toPixel(m_session.script.rtb1.BackColor()));
    placeArrow();
    connect(m_speaker.get(), &SpeakerScriptM::closeRequested, this, [this] { m_steering.leave(); });
    m_speaker->standOn(m_speakerDisplay.now, m_geometry);
    showState();
}

void DisplayWindow::connectControls() {
    Picture1->installEventFilter(this);
    if (m_speaker) {
        m_speaker->Picture1->installEventFilter(this);
    }
    connect(m_controls.Vscroll1, &QScrollBar::valueChanged, this, &DisplayWindow::Vscroll1_Change);
    connect(m_controls.Vscroll1, &QScrollBar::actionTriggered, this,
            &DisplayWindow::Vscroll1_Action);
    connect(m_controls.Vscroll1, &QScrollBar::sliderPressed, this,
            [this] { m_thumbAhead = m_controls.Vscroll1->value() - m_navigation->currentLine(); });
    connect(m_controls.Vscroll2, &UpDown::valueChanged, this, &DisplayWindow::Vscroll2_Change);
    connect(m_controls.Hscroll1, &QScrollBar::valueChanged, this, &DisplayWindow::Hscroll1_Change);
    connect(m_controls.Command1, &ShowButton::clicked, this, &DisplayWindow::startOrReset);
    connect(m_controls.Command2, &ShowButton::clicked, this, &DisplayWindow::startOrReset);
    connect(m_controls.Command3, &ShowButton::clicked, this, [this] { m_steering.leave(); });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &DisplayWindow::keepInFront);
    watchDisplays();
}

/// Both pictures in one turn: the speaker sees the row that the operator sees.
void DisplayWindow::paintPicture() {
    Picture1->repaint();
    if (m_speaker) {
        m_speaker->present();
    }
}

void DisplayWindow::runLoop() {
    const bool always = m_traits.timed || m_traits.face == Orientation::Mirrored;
    const ShowLoopParts parts{m_session,
                              *this,
                              m_tables,
                              m_composer,
                              *m_navigation,
                              *m_presenter,
                              [this] {
                                  m_pedal->poll();
                                  m_pointerRest->look();
                              },
                              always ? LoopHousekeeping::Measured::Always
                                     : LoopHousekeeping::Measured::ForwardSplitRange,
                              m_observer};
    if (m_traits.timed) {
        TimedLoop(parts, m_pace).run();
    } else {
        ScrollLoop(parts, m_geometry.textRows()).run();
    }
}

void DisplayWindow::leave() {
    setElapsedText(QString());
    setRemainingText(QString());
    m_pointer->freePointer();
    RichTextBox& rtb1 = m_session.script.rtb1;
    const double topLine = m_navigation->returnLine();
    const int top = rtb1.lineIndex(std::max(0, static_cast<int>(topLine) - 1));
    const int topNow = offerBookmarks(m_session, m_navigation->bookmarks().inserted(),
                                      faceInCharge(), pictureInCharge().window(), top);
    m_session.show.ShowTopLine = topNow == top ? topLine : rtb1.GetLineFromChar(topNow) + 1;
}

} // namespace velmora
