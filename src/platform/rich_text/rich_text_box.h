#pragma once

#include "platform/drawing/print_box.h"
#include "platform/outcome.h"
#include "platform/progress.h"
#include "platform/rich_text/rich_text_fragment.h"
#include "platform/text_services/text_encoding.h"

#include <QByteArray>
#include <QObject>
#include <QRectF>
#include <QString>
#include <QTextDocument>

#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class DocumentLayout;
class GlyphMaskCache;
class Surface;
struct RtfOmissions;
struct RtfReadResult;

/// How a file is read and written. The numbers are those of ScriptFileType.
enum class FileFormat : int { Rtf = 0, PlainText = 1 };

/// The rich text control without a window: the script, its layout and every operation on it.
///
/// Owned by whoever holds a script (the session's rtb1, the staging rtb2); RichTextView shows one.
/// Storage is a QTextDocument, layout a DocumentLayout in reference units of 1/8 point.
///
/// Positions: in every operation a line end counts as two, CR LF, and a character outside the BMP
/// as two; so a position found in Text() is a caret position. A caret set between CR and LF snaps
/// in front of the CR; deleting half a line end deletes it whole. Positions beyond the text are
/// limited. Lines are display lines after word wrap, from 0.
///
/// A property of a selection with several values is std::nullopt. With an empty selection a getter
/// tells the format at the caret and a setter gives the format of what is typed next.
class RichTextBox final : public QObject {
    Q_OBJECT
public:
    explicit RichTextBox(QObject* parent = nullptr);
    ~RichTextBox() override;

    // --- contents ----------------------------------------------------------------------------
    /// The plain text, lines ended by CR LF, \line as U+000B. Kept until the text changes.
    [[nodiscard]] const QString& Text() const;
    /// Replaces everything by plain text in the default format; line ends and control characters
    /// as in setSelText.
    void setText(const QString& text);
    [[nodiscard]] bool isEmpty() const;
    /// Length of Text(), without building it.
    [[nodiscard]] int textLength() const;
    [[nodiscard]] QByteArray TextRTF() const;
    /// Replaces everything. An empty array clears. On failure the contents stay as they were.
    Outcome setTextRTF(const QByteArray& rtf);
    /// Replaces the contents from a file; on failure they stay as they were.
    /// Plain text: UTF-8 with or without BOM, UTF-16 with BOM, else Windows-1252; line ends and
    /// control characters as in setSelText. A text that would take too much memory fails.
    Outcome LoadFile(const QString& path, FileFormat format);
    /// What LoadFile would put in, plain text in the default format; stopped like a failure. form,
    /// if given, takes that of a plain text.
    [[nodiscard]] RtfReadResult readFile(const QString& path, FileFormat format,
                                         const Progress& goesOn, TextForm* form = nullptr) const;
    /// What the file showed beside its text, which a control has no place for. Of the RTF that came
    /// with the last LoadFile or setTextRTF; nothing once something else has replaced everything.
    [[nodiscard]] const RtfOmissions& omitted() const;
    /// Writes through a temporary file and a rename: a failure leaves an old file whole.
    /// Plain text: in the form given; the line ends inside a paragraph are written like the others,
    /// for other programs know no other.
    Outcome SaveFile(const QString& path, FileFormat format, const TextForm& form = {}) const;
    [[nodiscard]] RichTextFragment fragment() const;
    void setFragment(const RichTextFragment& fragment);

    // --- selection ---------------------------------------------------------------------------
    [[nodiscard]] int SelStart() const;
    /// Sets the caret; the selection becomes empty.
    void setSelStart(int position);
    [[nodiscard]] int SelLength() const;
    void setSelLength(int length);
    /// Sets both ends; the caret stands at the second, which may be the smaller.
    void select(int anchor, int caret);
    void selectAll();
    /// The end of the selection at which the caret stands.
    [[nodiscard]] int caretPosition() const;
    [[nodiscard]] QString SelText() const;
    /// Replaces the selection; the caret stands behind the new text, the selection is empty.
    /// CR LF, CR, LF, U+000C, U+001C to U+001E, U+0085 and U+2029 are line ends, U+000B and U+2028
    /// line ends inside a paragraph; other control characters but the tab become blanks.
    void setSelText(const QString& text);
    [[nodiscard]] QByteArray SelRTF() const;
    Outcome setSelRTF(const QByteArray& rtf);
    [[nodiscard]] RichTextFragment selectedFragment() const;
    /// Replaces the selection; the caret stands behind what came in.
    void replaceSelection(const RichTextFragment& fragment);

    /// The same with a text so long that somebody has to watch, who may stop it; uses the fragment
    /// up, lays out, and signals nothing. False where it was stopped: a part came in. For a staging
    /// control, whose contents then go where they belong as a whole.
    [[nodiscard]] bool replaceSelectionWatched(RichTextFragment&& fragment, const Progress& goesOn);
    /// Exchanges text, layout and selection with another control, in no time however long the texts
    /// are; what belongs to the whole control stays. Both signal, whether or not anything differs.
    void exchangeContents(RichTextBox& other);

    // --- formats of the selection ------------------------------------------------------------
    [[nodiscard]] std::optional<Rgb24> SelColor() const;
    void setSelColor(Rgb24 color);
    /// The crBackColor of the selection's character format; 0 is none.
    [[nodiscard]] std::optional<Rgb24> SelBackColor() const;
    void setSelBackColor(Rgb24 color);
    [[nodiscard]] std::optional<QString> SelFontName() const;
    void setSelFontName(const QString& name);
    /// In points; halves are kept.
    [[nodiscard]] std::optional<double> SelFontSize() const;
    void setSelFontSize(double points);
    [[nodiscard]] std::optional<bool> SelBold() const;
    void setSelBold(bool on);
    [[nodiscard]] std::optional<bool> SelItalic() const;
    void setSelItalic(bool on);
    [[nodiscard]] std::optional<bool> SelUnderline() const;
    void setSelUnderline(bool on);
    [[nodiscard]] std::optional<bool> SelStrikeThru() const;
    void setSelStrikeThru(bool on);
    [[nodiscard]] std::optional<Alignment> SelAlignment() const;
    void setSelAlignment(Alignment alignment);
    /// Left and hanging offset of the selection's paragraphs: whether they have any, and clearing
    /// it.
    [[nodiscard]] bool SelHasOffset() const;
    void clearSelOffset();

    // --- the whole control -------------------------------------------------------------------
    [[nodiscard]] Rgb24 BackColor() const;
    void setBackColor(Rgb24 color);
    /// The format of text that is set without a format of its own, and of an empty document.
    [[nodiscard]] const CharacterFormat& defaultFormat() const;
    void setDefaultFormat(const CharacterFormat& format);
    /// Wrap width in unzoomed 96-dpi pixels. Changing it lays the document out again.
    [[nodiscard]] double wrapWidth() const;
    void setWrapWidth(double pixels);
    /// EM_SETZOOM: a number that scales what positions and the view tell; nothing is laid out
    /// again.
    [[nodiscard]] double zoom() const;
    void setZoom(double zoom);
    /// WM_SETREDRAW: while off, the view does not paint.
    [[nodiscard]] bool redraw() const;
    void setRedraw(bool on);

    // --- search and lines --------------------------------------------------------------------
    /// Plain search that ignores case, from start to the end of the text. Selects the match and
    /// returns its position, or returns -1 and changes nothing.
    int Find(const QString& text, int start);
    /// Line that holds the character at position.
    [[nodiscard]] int GetLineFromChar(int position) const;
    /// EM_LINEINDEX: position of the line's first character; -1 for a line that does not exist.
    [[nodiscard]] int lineIndex(int line) const;
    /// EM_LINELENGTH: characters of the line that holds position, without its line end.
    [[nodiscard]] int lineLength(int position) const;
    /// EM_GETLINECOUNT: at least 1.
    [[nodiscard]] int lineCount() const;
    /// EM_POSFROMCHAR's vertical coordinate, in pixels at the current zoom, in document
    /// coordinates: 1 + floor(top of the character's line * zoom).
    [[nodiscard]] int verticalPosition(int position) const;

    /// All lines at once, as three EM_ messages a line would tell them; far cheaper.
    struct LineMetrics final {
        int index = 0;
        int length = 0;
        int y = 0;
    };
    [[nodiscard]] std::vector<LineMetrics> lineMetrics(int count) const;
    /// Width of the widest word that is no wider than this, in unzoomed 96-dpi pixels; 0 for none.
    /// A word is what stands between two places at which a line may end, without blanks behind it.
    [[nodiscard]] double widestWord(double atMost) const;
    /// Natural height of a line at the current zoom, in pixels.
    [[nodiscard]] double lineHeight(int line) const;

    // --- drawing -----------------------------------------------------------------------------
    /// The runs of a range, which must lie inside one paragraph.
    [[nodiscard]] std::vector<StyledText> styledText(int position, int length) const;
    /// Draws a range, a line or a part of one, into a surface; "^" and "~" are left out. A whole
    /// line has the order of its paragraph where text runs from right to left. Glyph masks come
    /// from the cache, which must be of the same fonts for the life of the process.
    void printRange(Surface& target, int position, int length, const PrintBox& box,
                    GlyphMaskCache& cache) const;
    /// printRange of the selection.
    void SelPrint(Surface& target, const PrintBox& box, GlyphMaskCache& cache) const;

    /// Font families that the text asks for and the machine does not have, each with its
    /// substitute.
    struct MissingFont final {
        QString name;
        QString substitute;
    };
    [[nodiscard]] std::vector<MissingFont> missingFonts() const;

    /// For the view, which is the only other one to touch them.
    [[nodiscard]] QTextDocument& document();
    [[nodiscard]] const QTextDocument& document() const;
    [[nodiscard]] DocumentLayout& layout() const;
    /// Between the control's positions and those of the QTextDocument.
    [[nodiscard]] int toDocument(int position) const;
    [[nodiscard]] int fromDocument(int position) const;

Q_SIGNALS:
    /// The text or a format changed; fired synchronously, once for an operation.
    void Change();
    /// Selection or caret changed; not fired where an operation leaves both as they were.
    void SelChange();
    /// Zoom, back colour, wrap width or redraw changed: the view must look again.
    void appearanceChanged();
    /// Another QTextDocument takes the place of document(): before, and when it has.
    void documentLeaves();
    void documentArrived();

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace velmora
