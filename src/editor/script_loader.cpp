#include "editor/script_loader.h"

#include "core/editor_host.h"
#include "core/script_marks.h"
#include "core/session.h"
#include "editor/file_guard.h"
#include "editor/recent_files.h"
#include "editor/script_conventions.h"
#include "editor/script_files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_boxes.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/timing/event_pump.h"

#include <QDir>
#include <QFileInfo>

#include <array>

namespace velmora {

namespace {

/// Pumps before an append, in which the editor shows its end.
constexpr int PumpsBeforeAppend = 4;

ScriptType currentType(const Session& session) {
    return static_cast<ScriptType>(session.script.ScriptFileType);
}

/// "2 pictures, 1 footnote": what a file showed that the script does not. Empty for nothing.
QString listOf(const RtfOmissions& omitted) {
    struct Kind final {
        int RtfOmissions::*count;
        const char16_t* one;
        const char16_t* many;
    };
    static constexpr std::array kinds = {
        Kind{&RtfOmissions::pictures, u"picture", u"pictures"},
        Kind{&RtfOmissions::objects, u"object", u"objects"},
        Kind{&RtfOmissions::textBoxes, u"text box", u"text boxes"},
        Kind{&RtfOmissions::headersAndFooters, u"header or footer", u"headers and footers"},
        Kind{&RtfOmissions::footnotes, u"footnote", u"footnotes"},
        Kind{&RtfOmissions::comments, u"comment", u"comments"},
    };
    QStringList parts;
    for (const Kind& kind : kinds) {
        if (const int count = omitted.*kind.count; count > 0) {
            parts.append(QStringLiteral("%1 %2").arg(count).arg(
                QString::fromUtf16(count == 1 ? kind.one : kind.many)));
        }
    }
    return parts.join(QStringLiteral(", "));
}

/// Where the converter of DOC and DOCX will stand: it leaves the file's text in the box.
Outcome convertInto(RichTextBox&, const QString&) {
    return Outcome::failure(QStringLiteral("There is no converter for Word files."));
}

} // namespace

ScriptLoader::ScriptLoader(Session& session, EditorHost& host, RecentFileTable* recent)
    : m_session(session), m_host(host), m_recent(recent) {}

void ScriptLoader::LoadText() {
    const FileGuard guard(m_session);
    if (!guard.entered()) {
        return;
    }
    FileDialogRequest request;
    request.title = QStringLiteral("Load Text");
    request.filters = {QStringLiteral("Supported Formats (*.TXT, *.RTF, *.DOC, *.DOCX)"),
                       QStringLiteral("All Documents (*.*)")};
    request.defaultExtension = QStringLiteral(".RTF");
    request.folder = m_session.settings.LastScriptFolder;
    if (const auto choice = m_session.platform.fileDialogs.open(request)) {
        load(choice->path);
    } else {
        giveBackEditor();
    }
}

void ScriptLoader::loadScript(const QString& path) {
    const FileGuard guard(m_session);
    if (guard.entered()) {
        load(path);
    }
}

Outcome ScriptLoader::loadUnattended(const QString& path) {
    const FileGuard guard(m_session);
    if (!guard.entered()) {
        return Outcome::failure(QStringLiteral("Another file is being loaded or saved."));
    }
    rememberFile(path);
    const Outcome outcome = bringIn(Place::Caret);
    m_host.showProgress(QString());
    if (!outcome) {
        return Outcome::failure(failureText(outcome.reason()));
    }
    tell({noTextText(), leftOutText(), missingFontsText()});
    return outcome;
}

void ScriptLoader::load(const QString& path) {
    rememberFile(path);
    const Place place = askPlace();
    if (place == Place::Nowhere) {
        giveBackEditor();
        return;
    }
    ScriptState& script = m_session.script;
    const bool intoEmptyEditor = script.rtb1.isEmpty();
    const Outcome outcome = bringIn(place);
    m_host.showProgress(QString());
    m_session.platform.pump.DoEvents();
    if (!outcome) {
        m_session.platform.messages.show(MessageIcon::Critical,
                                         QStringLiteral("Could Not Load File"),
                                         failureText(outcome.reason()), MessageButtons::Ok);
        return;
    }
    if (intoEmptyEditor) {
        // To save over a file of which something was left out would lose that for good.
        script.ownFile = m_leftOut.isEmpty() ? script.ScriptFileName : QString();
    }
    tellAfterLoad(place);
}

void ScriptLoader::rememberFile(const QString& path) {
    ScriptState& script = m_session.script;
    script.ScriptFileName = QDir::fromNativeSeparators(path);
    m_session.settings.LastScriptFolder = folderOfScript(script.ScriptFileName);
    script.ScriptFileType = static_cast<int>(scriptTypeOf(path));
}

ScriptLoader::Place ScriptLoader::askPlace() {
    ScriptState& script = m_session.script;
    script.ExitAnswer = static_cast<int>(MessageAnswer::None);
    if (script.rtb1.isEmpty()) {
        return Place::Caret;
    }
    const MessageAnswer answer = m_session.platform.messages.show(
        MessageIcon::Question, QStringLiteral("Append Text"),
        QStringLiteral("Append New Text To The End Of Existing Text?"),
        MessageButtons::YesNoCancel);
    script.ExitAnswer = static_cast<int>(answer);
    if (answer == MessageAnswer::Cancel) {
        return Place::Nowhere;
    }
    return answer == MessageAnswer::Yes ? Place::End : Place::Caret;
}

Outcome ScriptLoader::bringIn(Place place) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    RichTextBox& rtb2 = m_session.script.rtb2;
    if (place == Place::End) {
        rtb1.setSelStart(rtb1.textLength());
        m_host.focusEditor();
        for (int i = 0; i < PumpsBeforeAppend; ++i) {
            m_session.platform.pump.DoEvents();
        }
    }
    Outcome outcome = readIntoStaging();
    if (outcome) {
        m_holdsText = !rtb2.Text().trimmed().isEmpty();
        m_leftOut = listOf(rtb2.omitted());
        if (place == Place::End) {
            // An appended file is a story of its own that can be jumped to.
            rtb2.setSelStart(0);
            rtb2.setSelText(SelectiveBookmarkMarker + QStringLiteral("\r\n") +
                            StoryBreakMarker.toString() + QStringLiteral("\r\n"));
        }
        moveStagingToEditor(place);
        m_host.focusEditor();
        m_host.sendZoom();
    }
    rtb2.setText(QString());
    return outcome;
}

Outcome ScriptLoader::readIntoStaging() {
    const ScriptType type = currentType(m_session);
    const QString& path = m_session.script.ScriptFileName;
    RichTextBox& rtb2 = m_session.script.rtb2;
    if (needsConverter(type)) {
        m_host.showProgress(QStringLiteral("Converting Word File."));
        return convertInto(rtb2, path);
    }
    m_host.showProgress(QStringLiteral("Loading File."));
    // The window has to be on the screen before the work begins that keeps all else waiting.
    m_session.platform.pump.DoEvents();
    return rtb2.LoadFile(path, static_cast<FileFormat>(type));
}

void ScriptLoader::moveStagingToEditor(Place place) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    RichTextFragment text = m_session.script.rtb2.fragment();
    replaceTabs(text);
    if (currentType(m_session) == ScriptType::PlainText) {
        applyPlainTextLook(
            text, plainTextLook(m_session, m_host.comboFontName(), m_host.comboFontSize()));
    } else {
        applyColourRuleForBackground(text, rtb1.BackColor());
    }
    clearOffsets(text);
    if (place == Place::End) {
        rtb1.setSelStart(rtb1.textLength());
    }
    rtb1.setSelLength(0);
    const int landing = rtb1.SelStart();
    rtb1.replaceSelection(text);
    rtb1.setSelStart(landing);
}

void ScriptLoader::tellAfterLoad(Place place) {
    tell({noTextText(), leftOutText(), missingFontsText(), recentListText(place)});
}

/// One notice of what there is to say.
void ScriptLoader::tell(QStringList notes) {
    notes.removeAll(QString());
    m_host.showNotice(notes.join(u' '));
}

QString ScriptLoader::noTextText() const {
    return m_holdsText ? QString() : QStringLiteral("The file holds no text.");
}

QString ScriptLoader::leftOutText() const {
    return m_leftOut.isEmpty() ? QString() : QStringLiteral("Left out: %1.").arg(m_leftOut);
}

QString ScriptLoader::missingFontsText() const {
    QStringList fonts;
    for (const RichTextBox::MissingFont& font : m_session.script.rtb1.missingFonts()) {
        fonts.append(QStringLiteral("%1 (shown as %2)").arg(font.name, font.substitute));
    }
    if (fonts.isEmpty()) {
        return QString();
    }
    return QStringLiteral("Not installed: %1.").arg(fonts.join(QStringLiteral(", ")));
}

/// Updates the recent list; the text tells why it could not be written.
QString ScriptLoader::recentListText(Place place) {
    if (m_recent == nullptr || !m_session.keepsFiles) {
        return QString();
    }
    m_recent->add(m_session.script.ScriptFileName);
    const Outcome written =
        m_recent->write(place == Place::End ? RecentFileTable::EntriesAfterAppend
                                            : RecentFileTable::EntriesAfterInsert);
    return written ? QString()
                   : QStringLiteral("The list of recent files could not be written: %1.")
                         .arg(written.reason());
}

QString ScriptLoader::failureText(const QString& reason) const {
    const QString& path = m_session.script.ScriptFileName;
    const QString first = QStringLiteral("I could not load %1.\r\n\r\n").arg(path);
    if (needsConverter(currentType(m_session))) {
        return first + QStringLiteral("When loading .DOC or .DOCX files, please verify that Word "
                                      "is correctly installed.");
    }
    const QString advice =
        QFileInfo(path).isReadable()
            ? QStringLiteral("Please open it in the program that it comes from, and save it from "
                             "there as RTF or text.")
            : QStringLiteral("Please verify that the file exists and that you may read it.");
    return first + reason + QStringLiteral("\r\n\r\n") + advice;
}

void ScriptLoader::giveBackEditor() {
    m_host.focusEditor();
    m_host.sendZoom();
    m_host.showProgress(QString());
    m_session.platform.pump.DoEvents();
}

} // namespace velmora
