#include "editor/script_saver.h"

#include "core/editor_host.h"
#include "core/session.h"
#include "editor/file_guard.h"
#include "editor/script_conventions.h"
#include "editor/script_files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_boxes.h"
#include "platform/timing/event_pump.h"

#include <QDir>

namespace velmora {

namespace {

/// The save dialog's filters, from 1.
constexpr int TextFilter = 1;
constexpr int RichTextFilter = 2;

bool endsAsText(const QString& path) {
    return path.endsWith(u".txt", Qt::CaseInsensitive);
}

/// The extension follows the filter and not what was typed.
QString pathFor(const FileDialogChoice& choice) {
    return withScriptEnding(QDir::fromNativeSeparators(choice.path),
                            choice.filterIndex == RichTextFilter ? u".rtf" : u".txt");
}

FileDialogRequest saveRequest(const Session& session) {
    const ScriptState& script = session.script;
    FileDialogRequest request;
    request.title = QStringLiteral("Save Text");
    request.filters = {QStringLiteral("Text Files (*.TXT)"), QStringLiteral("Rich Text (*.RTF)")};
    request.filterIndex = endsAsText(script.ScriptFileName) ? TextFilter : RichTextFilter;
    request.defaultExtension = QStringLiteral(".rtf");
    request.folder = session.settings.LastScriptFolder;
    request.fileName = script.ScriptFileName;
    request.writtenPath = pathFor;
    request.ownFile = script.ownFile;
    request.ownFileStamp = script.ownFileStamp;
    return request;
}

} // namespace

Outcome writeScriptTo(Session& session, const QString& path) {
    const RichTextBox& rtb1 = session.script.rtb1;
    if (endsAsText(path)) {
        return rtb1.SaveFile(path, FileFormat::PlainText, session.script.textForm);
    }
    RichTextBox& rtb2 = session.script.rtb2;
    RichTextFragment text = rtb1.fragment();
    applyColourRule(text, Black, White);
    rtb2.setFragment(text);
    const Outcome outcome = rtb2.SaveFile(path, FileFormat::Rtf);
    rtb2.setText(QString());
    return outcome;
}

ScriptSaver::ScriptSaver(Session& session, EditorHost& host) : m_session(session), m_host(host) {}

void ScriptSaver::SaveText() {
    const FileGuard guard(m_session);
    const bool leaving = m_session.script.ExitSaveInProgress == 1;
    if (guard.entered()) {
        save();
    }
    m_session.script.ExitSaveInProgress = 0;
    // On the way out the focus is left alone, unless the program stays after all.
    if (guard.entered() && (!leaving || m_session.script.SaveFailed == 1)) {
        m_host.focusEditor();
    }
}

void ScriptSaver::save() {
    ScriptState& script = m_session.script;
    if (script.rtb1.isEmpty()) {
        tellThatNothingIsSaved();
        return;
    }
    if (script.ScriptFileName.isEmpty()) {
        script.ScriptFileName = QStringLiteral("Untitled.rtf");
    }
    const auto choice = m_session.platform.fileDialogs.save(saveRequest(m_session));
    if (choice) {
        writeScript(*choice);
    }
}

/// A change of a script that a file still holds stays one.
void ScriptSaver::tellThatNothingIsSaved() {
    ScriptState& script = m_session.script;
    if (script.ownFile.isEmpty()) {
        script.TextChanged = 0;
    } else {
        m_host.showNotice(QStringLiteral("An empty script is not saved: %1 still holds its text.")
                              .arg(script.ownFile));
    }
}

void ScriptSaver::writeScript(const FileDialogChoice& choice) {
    ScriptState& script = m_session.script;
    const QString path = pathFor(choice);
    m_host.showProgress(QStringLiteral("Saving Document"));
    // As for a load, the window has to be on the screen before the work begins.
    m_session.platform.pump.DoEvents();
    const Outcome outcome = writeScriptTo(m_session, path);
    m_host.showProgress(QString());
    if (outcome) {
        script.ScriptFileName = path;
        script.ScriptFileBase = scriptFileBase(path);
        script.ScriptFileType = choice.filterIndex == RichTextFilter ? 0 : 1;
        script.TextChanged = 0;
        script.SaveFailed = 0;
        script.ownFile = path;
        script.ownFileStamp = FileStamp::of(path);
        m_session.settings.LastScriptFolder = folderOfScript(path);
    }
    m_session.platform.pump.DoEvents();
    if (!outcome) {
        reportFailure(path, outcome.reason());
    }
}

void ScriptSaver::reportFailure(const QString& path, const QString& reason) {
    m_session.platform.messages.show(
        MessageIcon::Critical, QStringLiteral("Could Not Save File"),
        QStringLiteral("I could not save %1.\r\n\r\n%2\r\n\r\nThe text is still in the editor. "
                       "Please save it under another name or in another folder.")
            .arg(path, reason),
        MessageButtons::Ok);
}

} // namespace velmora
