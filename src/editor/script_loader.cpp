#include "editor/script_loader.h"

#include "core/editor_host.h"
#include "core/script_marks.h"
#include "core/session.h"
#include "editor/file_guard.h"
#include "editor/long_load.h"
#include "editor/long_paragraph_question.h"
#include "editor/recent_files.h"
#include "editor/script_conventions.h"
#include "editor/script_files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_boxes.h"
#include "platform/rich_text/long_paragraphs.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/timing/event_pump.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace velmora {

namespace {

/// Pumps before an append, in which the editor shows its end.
constexpr int PumpsBeforeAppend = 4;
/// Of a long load, in the progress that is shown.
constexpr double ShareOfReading = 0.2;

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
        Kind{&RtfOmissions::formats, u"change of format", u"changes of format"},
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

Outcome cancelled() {
    return Outcome::failure(QStringLiteral("The load was cancelled."));
}

/// Where the converter of DOC and DOCX will stand.
RtfReadResult convert(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        return {{},
                Outcome::failure(file.isDir() ? QStringLiteral("It is a folder.")
                                              : QStringLiteral("There is no such file."))};
    }
    return {{}, Outcome::failure(QStringLiteral("There is no converter for Word files."))};
}

bool holdsText(const RichTextFragment& text) {
    return std::ranges::any_of(text.paragraphs,
                               [](const Paragraph& p) { return !p.text.trimmed().isEmpty(); });
}

/// An appended file is a story of its own that can be jumped to.
void beginStory(RichTextFragment& text) {
    const Paragraph& first = text.paragraphs.front();
    const int format = first.runs.empty() ? first.endFormat : first.runs.front().format;
    std::vector<Paragraph> head;
    for (const QString& line : {QString(SelectiveBookmarkMarker), StoryBreakMarker.toString()}) {
        head.push_back({line, {{static_cast<int>(line.size()), format}}, format, first.format});
    }
    text.paragraphs.insert(text.paragraphs.begin(), std::make_move_iterator(head.begin()),
                           std::make_move_iterator(head.end()));
}

/// What to do about a file that could not be loaded.
QString adviceFor(const QString& path) {
    const QFileInfo file(path);
    if (file.isDir()) {
        return QStringLiteral("Please choose a file in it.");
    }
    if (file.isFile() && file.isReadable()) {
        return QStringLiteral("Please open it in the program that it comes from, and save it from "
                              "there as RTF or text.");
    }
    // What stands for bytes that are no letters: the toolkit cannot open a file by such a name.
    if (path.contains(QChar(QChar::ReplacementCharacter))) {
        return QStringLiteral("Its name, or that of a folder, holds letters in an encoding other "
                              "than UTF-8. Please rename it.");
    }
    return QStringLiteral("Please verify that the file exists and that you may read it.");
}

} // namespace

ScriptLoader::ScriptLoader(Session& session, EditorHost& host, RecentFileTable* recent)
    : m_session(session), m_host(host), m_recent(recent) {}

bool ScriptLoader::LoadText() {
    const FileGuard guard(m_session);
    if (!guard.entered()) {
        return false;
    }
    FileDialogRequest request;
    request.title = QStringLiteral("Load Text");
    request.filters = {QStringLiteral("Supported Formats (*.TXT, *.RTF, *.DOC, *.DOCX)"),
                       QStringLiteral("All Documents (*.*)")};
    request.defaultExtension = QStringLiteral(".RTF");
    request.folder = m_session.settings.LastScriptFolder;
    if (const auto choice = m_session.platform.fileDialogs.open(request)) {
        return load(choice->path);
    }
    giveBackEditor();
    return false;
}

bool ScriptLoader::loadScript(const QString& path) {
    const FileGuard guard(m_session);
    return guard.entered() && load(path);
}

Outcome ScriptLoader::loadUnattended(const QString& path) {
    const FileGuard guard(m_session);
    if (!guard.entered()) {
        return Outcome::failure(QStringLiteral("Another file is being loaded or saved."));
    }
    rememberFile(path);
    const Outcome outcome = bringIn(Place::Caret, false);
    m_host.showProgress(QString());
    if (!outcome) {
        return Outcome::failure(failureText(outcome.reason()));
    }
    adoptFile(Place::Caret, true);
    tell({noTextText(), leftOutText(), missingFontsText()});
    return outcome;
}

bool ScriptLoader::load(const QString& path) {
    rememberFile(path);
    const Place place = askPlace();
    if (place == Place::Nowhere) {
        giveBackEditor();
        return false;
    }
    const bool intoEmptyEditor = m_session.script.rtb1.isEmpty();
    const Outcome outcome = bringIn(place, true);
    m_host.showProgress(QString());
    m_session.platform.pump.DoEvents();
    if (m_cancelled) {
        giveBackEditor();
        return false;
    }
    if (!outcome) {
        m_session.platform.messages.show(MessageIcon::Critical,
                                         QStringLiteral("Could Not Load File"),
                                         failureText(outcome.reason()), MessageButtons::Ok);
        return false;
    }
    adoptFile(place, intoEmptyEditor);
    tellAfterLoad(place);
    return true;
}

void ScriptLoader::rememberFile(const QString& path) {
    m_path = QDir::cleanPath(QDir::fromNativeSeparators(path));
    m_textForm = {};
    m_type = scriptTypeOf(path);
}

/// The script takes the name of the file that is it, or that was appended last; a file that came in
/// at the caret leaves it its own.
void ScriptLoader::adoptFile(Place place, bool intoEmptyEditor) {
    ScriptState& script = m_session.script;
    m_session.settings.LastScriptFolder = folderOfScript(m_path);
    if (intoEmptyEditor || place == Place::End) {
        script.ScriptFileName = m_path;
        script.ScriptFileType = static_cast<int>(m_type);
    }
    if (!intoEmptyEditor) {
        return;
    }
    script.textForm = m_textForm;
    script.TextChanged = m_broken ? 1 : 0;
    // To save over a file of which something was left out would lose that for good; and one with
    // other paragraphs may be another program's.
    script.ownFile = m_leftOut.isEmpty() && !m_broken ? m_path : QString();
    script.ownFileStamp = m_stamp;
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

Outcome ScriptLoader::bringIn(Place place, bool attended) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    const int caret = rtb1.caretPosition();
    const int anchor = 2 * rtb1.SelStart() + rtb1.SelLength() - caret;
    if (place == Place::End) {
        rtb1.setSelStart(rtb1.textLength());
        m_host.focusEditor();
        for (int i = 0; i < PumpsBeforeAppend; ++i) {
            m_session.platform.pump.DoEvents();
        }
    }
    LongLoad load(m_session, m_host);
    RtfReadResult read = readFile(load);
    m_cancelled = false;
    m_broken = false;
    if (read.outcome && attended) {
        read.outcome = breakLong(read.fragment);
    }
    if (read.outcome) {
        m_holdsText = holdsText(read.fragment);
        m_leftOut = listOf(read.omitted);
        tame(read.fragment, place);
        read.outcome = moveToEditor(std::move(read.fragment), place, attended, load);
    }
    m_cancelled = m_cancelled || load.isCancelled();
    if (!read.outcome) {
        rtb1.select(anchor, caret);
        return read.outcome;
    }
    m_host.focusEditor();
    m_host.sendZoom();
    return read.outcome;
}

RtfReadResult ScriptLoader::readFile(LongLoad& load) {
    if (needsConverter(m_type)) {
        m_host.showProgress(QStringLiteral("Converting Word File."));
        return convert(m_path);
    }
    m_host.showProgress(QStringLiteral("Loading File."));
    // Before the read: what another program writes meanwhile is asked about at the save.
    m_stamp = FileStamp::of(m_path);
    // The window has to be on the screen before the work begins that keeps all else waiting.
    m_session.platform.pump.DoEvents();
    m_session.script.rtb2.setDefaultFormat(
        plainTextLook(m_session, m_host.comboFontName(), m_host.comboFontSize()));
    return m_session.script.rtb2.readFile(m_path, static_cast<FileFormat>(m_type),
                                          load.part(0, ShareOfReading), &m_textForm);
}

Outcome ScriptLoader::breakLong(RichTextFragment& text) {
    if (long_paragraphs::longestOf(text) > 0) {
        m_host.showProgress(QString());
    }
    const LongParagraphAnswer answer = breakLongParagraphs(m_session, m_path, text);
    m_broken = answer == LongParagraphAnswer::Broken;
    m_cancelled = answer == LongParagraphAnswer::Cancelled;
    if (m_broken) {
        m_host.showProgress(QStringLiteral("Loading File."));
    }
    return m_cancelled ? cancelled() : Outcome::success();
}

void ScriptLoader::tame(RichTextFragment& text, Place place) {
    if (place == Place::End) {
        beginStory(text);
    }
    replaceTabs(text);
    if (m_type == ScriptType::PlainText) {
        applyPlainTextLook(
            text, plainTextLook(m_session, m_host.comboFontName(), m_host.comboFontSize()));
    } else {
        applyColourRuleForBackground(text, m_session.script.rtb1.BackColor());
    }
    clearOffsets(text);
}

Outcome ScriptLoader::moveToEditor(RichTextFragment text, Place place, bool attended,
                                   LongLoad& load) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    const int landing = place == Place::End ? rtb1.textLength() : rtb1.SelStart();
    if (!attended || !takesLong(text)) {
        rtb1.setSelStart(landing);
        rtb1.replaceSelection(text);
    } else if (!stage(std::move(text), landing, load)) {
        return cancelled();
    }
    rtb1.setSelStart(landing);
    return Outcome::success();
}

/// Makes the whole new script in rtb2, from where it goes to the editor in one go: until then the
/// editor and all that looks at it have the old one.
bool ScriptLoader::stage(RichTextFragment text, int landing, LongLoad& load) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    RichTextBox& rtb2 = m_session.script.rtb2;
    const double oldUnits = rtb1.textLength();
    double newUnits = 1;
    for (const Paragraph& paragraph : text.paragraphs) {
        newUnits += static_cast<double>(paragraph.text.size() + 2);
    }
    const double half = ShareOfReading + (1 - ShareOfReading) * oldUnits / (oldUnits + newUnits);
    rtb2.setDefaultFormat(rtb1.defaultFormat());
    rtb2.setWrapWidth(rtb1.wrapWidth());
    bool done = rtb1.isEmpty() ||
                rtb2.replaceSelectionWatched(rtb1.fragment(), load.part(ShareOfReading, half));
    rtb2.setSelStart(landing);
    done = done && rtb2.replaceSelectionWatched(std::move(text), load.part(half, 1));
    if (done) {
        rtb1.exchangeContents(rtb2);
    }
    rtb2.setText(QString());
    return done;
}

void ScriptLoader::tellAfterLoad(Place place) {
    tell({noTextText(), leftOutText(), missingFontsText(), recentListText(place)});
}

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
    // Nobody chose the program's own default, or wants to be told of its substitute on each load.
    const QString ownDefault = Settings().ScreenFontName;
    QStringList fonts;
    for (const RichTextBox::MissingFont& font : m_session.script.rtb1.missingFonts()) {
        if (font.name.compare(ownDefault, Qt::CaseInsensitive) == 0) {
            continue;
        }
        fonts.append(QStringLiteral("%1 (shown as %2)").arg(font.name, font.substitute));
    }
    return fonts.isEmpty()
               ? QString()
               : QStringLiteral("Not installed: %1.").arg(fonts.join(QStringLiteral(", ")));
}

/// Updates the recent list; the text tells why it could not be written.
QString ScriptLoader::recentListText(Place place) {
    if (m_recent == nullptr || !m_session.keepsFiles) {
        return QString();
    }
    m_recent->add(m_path);
    const Outcome written =
        m_recent->write(place == Place::End ? RecentFileTable::EntriesAfterAppend
                                            : RecentFileTable::EntriesAfterInsert);
    return written ? QString()
                   : QStringLiteral("The list of recent files could not be written: %1.")
                         .arg(written.reason());
}

QString ScriptLoader::failureText(const QString& reason) const {
    const QString first = QStringLiteral("I could not load %1.\r\n\r\n").arg(m_path);
    const bool needsWord = needsConverter(m_type) && QFileInfo(m_path).isFile();
    return first + (needsWord ? QStringLiteral("When loading .DOC or .DOCX files, please verify "
                                               "that Word is correctly installed.")
                              : reason + QStringLiteral("\r\n\r\n") + adviceFor(m_path));
}

void ScriptLoader::giveBackEditor() {
    m_host.focusEditor();
    m_host.sendZoom();
    m_host.showProgress(QString());
    m_session.platform.pump.DoEvents();
}

} // namespace velmora
