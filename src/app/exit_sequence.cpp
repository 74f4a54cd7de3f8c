#include "app/exit_sequence.h"

#include "core/editor_host.h"
#include "core/session.h"
#include "core/settings_file.h"
#include "platform/desktop/message_boxes.h"

#include <utility>

namespace velmora {

namespace {
constexpr int AnswerCancel = static_cast<int>(MessageAnswer::Cancel);
constexpr int AnswerYes = static_cast<int>(MessageAnswer::Yes);
} // namespace

ExitSequence::ExitSequence(Session& session, EditorHost& host, Steps steps)
    : m_session(session), m_host(host), m_steps(std::move(steps)) {}

bool ExitSequence::run() {
    askWhatBecomesOfTheText();
    if (m_session.script.ExitAnswer == AnswerCancel) {
        m_host.focusEditor();
        return false;
    }
    writeSettings();
    saveIfAsked();
    if (m_session.script.SaveFailed == 1) {
        m_host.focusEditor();
        return false;
    }
    return true;
}

void ExitSequence::askWhatBecomesOfTheText() {
    ScriptState& script = m_session.script;
    script.ExitAnswer = 0;
    if (script.TextChanged == 1 && !script.rtb1.isEmpty()) {
        m_steps.askToSave();
    }
}

void ExitSequence::writeSettings() {
    const Outcome written = m_steps.writeSettings();
    if (written) {
        return;
    }
    m_session.platform.messages.show(
        MessageIcon::Warning, QStringLiteral("Could Not Save Settings"),
        QStringLiteral(
            "I could not save %1.\r\n\r\n%2\r\n\r\nThe next start will have the settings "
            "of before. To keep new ones, please verify that you may write to this file "
            "and its folder and that the disk is not full.")
            .arg(m_session.AppFolder + SettingsFile::fileName(), written.reason()),
        MessageButtons::Ok);
}

void ExitSequence::saveIfAsked() {
    ScriptState& script = m_session.script;
    script.SaveFailed = 0;
    if (script.ExitAnswer == AnswerYes) {
        script.SaveFailed = 1;
        script.ExitSaveInProgress = 1;
        m_steps.saveScript();
        script.ExitSaveInProgress = 0;
    }
}

} // namespace velmora
