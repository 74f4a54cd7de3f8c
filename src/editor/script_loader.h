#pragma once

#include "editor/script_files.h"
#include "platform/files/file_stamp.h"
#include "platform/outcome.h"
#include "platform/text_services/text_encoding.h"

#include <QString>
#include <QStringList>

namespace velmora {

class EditorHost;
class LongLoad;
class RecentFileTable;
class Session;
struct RichTextFragment;
struct RtfReadResult;

/// Brings scripts from files into the editor: through the staging control rtb2, where they are
/// tamed, into rtb1. Owned by the main window.
///
/// A load that fails tells the user why and leaves the editor's text as it was; so does one that
/// the user cancels, which he may as soon as it has taken a second. One that is asked for inside
/// another load, a save or a show does nothing.
class ScriptLoader final {
public:
    /// recent may be null: then no list of recent files is kept.
    ScriptLoader(Session& session, EditorHost& host, RecentFileTable* recent);

    /// The Load command: asks for a file and loads it. True if the editor has it.
    bool LoadText();
    /// Loads a file that was chosen from the recent list or named at start. When the editor holds
    /// text the user is asked whether to append; otherwise the new text goes in at the caret.
    bool loadScript(const QString& path);
    /// Loads a file for an unattended run: at the caret, without a question, a message or a recent
    /// list. On failure the reason is a whole text for the user, the path included.
    Outcome loadUnattended(const QString& path);
    /// A sentence about what the file that was read last showed beside its text, and the script
    /// does not; empty where there was nothing of the kind.
    [[nodiscard]] QString leftOutText() const;

private:
    /// Where the new text goes, or Nowhere: the user cancelled.
    enum class Place { Caret, End, Nowhere };

    bool load(const QString& path);
    void rememberFile(const QString& path);
    void adoptFile(Place place, bool intoEmptyEditor);
    [[nodiscard]] Place askPlace();
    Outcome bringIn(Place place, bool attended);
    RtfReadResult readFile(LongLoad& load);
    Outcome breakLong(RichTextFragment& text);
    void tame(RichTextFragment& text, Place place);
    Outcome moveToEditor(RichTextFragment text, Place place, bool attended, LongLoad& load);
    bool stage(RichTextFragment text, int landing, LongLoad& load);
    void tellAfterLoad(Place place);
    void tell(QStringList notes);
    [[nodiscard]] QString noTextText() const;
    [[nodiscard]] QString missingFontsText() const;
    [[nodiscard]] QString recentListText(Place place);
    [[nodiscard]] QString failureText(const QString& reason) const;
    void giveBackEditor();

    Session& m_session;
    EditorHost& m_host;
    RecentFileTable* m_recent;
    /// The user has stopped the last load, which has changed nothing.
    bool m_cancelled = false;
    /// Paragraphs of the file that was read last were broken.
    bool m_broken = false;
    /// The file that is loaded, or was last. Another one than the script's where it was not loaded
    /// after all, or came into a script that there was.
    QString m_path;
    ScriptType m_type = ScriptType::Rtf;
    TextForm m_textForm;
    FileStamp m_stamp;
    /// Of the file that was read last: whether there is anything to see in it.
    bool m_holdsText = true;
    /// Of the same file: what was left out, as a list in words.
    QString m_leftOut;
};

} // namespace velmora
