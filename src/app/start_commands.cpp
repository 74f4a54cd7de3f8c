#include "app/start_commands.h"

#include "core/editor_host.h"
#include "core/session.h"
#include "platform/timing/event_pump.h"

#include <utility>

namespace velmora {

StartCommands::StartCommands(Session& session, EditorHost& host, std::function<void()> runPrompter)
    : m_session(session), m_host(host), m_runPrompter(std::move(runPrompter)) {}

void StartCommands::StartButton() {
    m_session.platform.pump.DoEvents();
    const RichTextBox& rtb1 = m_session.script.rtb1;
    if (rtb1.isEmpty()) {
        m_host.focusEditor();
        return;
    }
    const bool atCaret = m_session.settings.FirstDisplayLine != 0;
    m_session.show.StartFromCursor = atCaret ? 1 : 0;
    m_session.show.StartPosition = atCaret ? caretLine() : rtb1.SelStart();
    m_session.platform.pump.DoEvents();
    m_host.focusEditor();
    m_runPrompter();
}

void StartCommands::fromBeginning() {
    startByKey(0, 0);
}

void StartCommands::fromCursor() {
    startByKey(1, caretLine());
}

double StartCommands::caretLine() const {
    const RichTextBox& rtb1 = m_session.script.rtb1;
    return rtb1.GetLineFromChar(rtb1.SelStart());
}

void StartCommands::startByKey(int fromCursor, double position) {
    if (!m_session.script.rtb1.isEmpty()) {
        m_session.show.StartPosition = position;
        m_session.show.StartFromCursor = fromCursor;
        m_host.sendZoom();
        m_runPrompter();
    }
    m_session.platform.pump.DoEvents();
    m_host.focusEditor();
}

} // namespace velmora
