#include "display/show_hand_over.h"

#include "core/arrangement.h"
#include "core/editor_host.h"
#include "core/line_spacing.h"
#include "core/number_format.h"
#include "core/session.h"
#include "display/display_windows.h"
#include "display/script_preparation.h"
#include "platform/desktop/appearance_effects.h"
#include "platform/desktop/message_boxes.h"
#include "platform/desktop/sleep_inhibitor.h"
#include "platform/timing/event_pump.h"

#include <algorithm>
#include <memory>

namespace velmora {

namespace {

/// Asks whether a script too long for a show shall be shown as far as it goes.
bool longScriptAccepted(Session& session) {
    const int beyond = session.script.rtb1.lineCount() - MaxScriptLines;
    if (beyond <= 0) {
        return true;
    }
    const QString text = QStringLiteral("A show holds %1 lines. The last %2 lines of this script "
                                        "will not be shown.\n\nStart the show without them?")
                             .arg(formatThousands(MaxScriptLines), formatThousands(beyond));
    return session.platform.messages.show(MessageIcon::Warning,
                                          QStringLiteral("Script Too Long For One Show"), text,
                                          MessageButtons::OkCancel) == MessageAnswer::Ok;
}

} // namespace

ShowHandOver::ShowHandOver(Session& session, EditorHost& host) : m_session(session), m_host(host) {}

void ShowHandOver::RunPrompter() {
    if (m_running || m_session.script.rtb1.isEmpty() || !longScriptAccepted(m_session)) {
        return;
    }
    m_running = true;
    takeScript();
    runDisplayWindow();
    restoreEditor();
    m_running = false;
}

void ShowHandOver::takeScript() {
    ShowState& show = m_session.show;
    RichTextBox& rtb1 = m_session.script.rtb1;
    // Whatever an earlier show left behind goes.
    const int startFromCursor = show.StartFromCursor;
    const double startPosition = show.StartPosition;
    // A show that does not take place leaves the caret's line where it is.
    const double topLine = rtb1.GetLineFromChar(rtb1.SelStart()) + 1;
    show = ShowState();
    show.StartFromCursor = startFromCursor;
    show.StartPosition = startPosition;
    show.ShowTopLine = topLine;
    show.ShowRunning = 1;
    show.ShowActive = 1;
    show.LineSpacingText = lineSpacingText(m_session.settings.LineSpacingIndex);
    m_host.setEditorActive(false);
    rtb1.setRedraw(false);
    show.ScriptRtf = rtb1.TextRTF();
    rtb1.setSelStart(0);
    m_host.sendZoom();
    Settings& settings = m_session.settings;
    settings.SpeedControllerInUse = speedControllerInUse(settings.ControllerType) ? 1 : 0;
}

/// The window that the settings ask for. With an arrangement that is none there is no show.
std::unique_ptr<DisplayWindow> ShowHandOver::createDisplayWindow() const {
    const bool timed = m_session.settings.TimedDisplay != 0;
    switch (m_session.settings.MirrorMode) {
    case mirror::OneDisplay:
    case mirror::TwoDisplays:
        if (timed) {
            return std::make_unique<Form22>(m_session, m_observer);
        }
        return std::make_unique<Form4>(m_session, m_observer);
    case mirror::Mirrored:
        if (timed) {
            return std::make_unique<Form25>(m_session, m_observer);
        }
        return std::make_unique<Form20>(m_session, m_observer);
    default:
        return nullptr;
    }
}

void ShowHandOver::runDisplayWindow() {
    const std::unique_ptr<DisplayWindow> window = createDisplayWindow();
    if (!window) {
        m_host.showNotice(QStringLiteral(
            "No show: the arrangement of the displays in the settings is not available. Choose "
            "another one in the setup."));
        return;
    }
    SmoothingAroundShow smoothing(m_session.platform.effects);
    smoothing.begin();
    m_session.platform.sleepInhibitor.inhibit(QStringLiteral("A show is running"));
    window->load();
    m_session.platform.sleepInhibitor.release();
    smoothing.end();
}

void ShowHandOver::restoreEditor() {
    ShowState& show = m_session.show;
    RichTextBox& rtb1 = m_session.script.rtb1;
    show.ExitRequested = 0;
    m_session.platform.pump.DoEvents();
    show.ShowActive = 0;
    // From here on a 0-based line of rtb1.
    show.ShowTopLine = std::max(0.0, show.ShowTopLine - 1);
    const int line = std::min(static_cast<int>(show.ShowTopLine), rtb1.lineCount() - 1);
    m_host.sendZoom();
    m_host.setEditorActive(true);
    rtb1.setSelStart(std::max(0, rtb1.lineIndex(line)));
    m_host.scrollLineToTop(line);
    rtb1.setRedraw(true);
    m_host.focusEditor();
    show.ShowRunning = 0;
    show.ScriptRtf.clear();
}

} // namespace velmora
