#pragma once

#include "platform/rich_text/memory_bound.h"
#include "platform/rich_text/rich_text_fragment.h"

#include <QHash>
#include <QLatin1StringView>

namespace velmora {

/// Gathers the text that a reader finds into a RichTextFragment. Only what a document can hold gets
/// in: lone halves of surrogate pairs become U+FFFD, control characters and noncharacters go.
class RtfFragmentBuilder final {
public:
    explicit RtfFragmentBuilder(qint64 fileBytes) : m_memory(fileBytes) {}

    /// Beyond these a document is refused; they are far above any script and keep a hostile file
    /// from taking the machine's memory.
    static constexpr qsizetype MaxParagraphs = 1'000'000;
    static constexpr qsizetype MaxTextUnits = qsizetype{128} * 1024 * 1024;
    static constexpr qsizetype MaxRuns = 4'000'000;
    /// Text in further formats is kept, in the format of what stands before it.
    static constexpr std::size_t MaxFormats = 16'384;

    /// The format of what is appended from now on, and of the end of its paragraph.
    void setFormat(const CharacterFormat& format);

    /// Appends text of printable ASCII and tabs.
    void appendAscii(QLatin1StringView text);
    /// Appends one UTF-16 unit; the halves of a surrogate pair come one after the other.
    void append(char16_t unit);

    /// A line end; the paragraph that it ends has this format.
    void endParagraph(const ParagraphFormat& format);

    /// The end of a table's cell: a tab, written only once more text of the row follows. The row
    /// keeps the paragraph format of its first cell.
    void endCell(const ParagraphFormat& format);
    /// The end of a table's row: a line end.
    void endRow(const ParagraphFormat& format);

    /// Whether the paragraph holds no text yet.
    [[nodiscard]] bool atParagraphStart() const { return m_text.isEmpty(); }
    /// Tells of a list's label; false where the paragraph has had one.
    [[nodiscard]] bool beginLabel();

    [[nodiscard]] bool full() const { return m_full || m_memory.isExceeded(); }
    /// What there is to say where it is full.
    [[nodiscard]] Outcome failure() const;

    /// Changes to formats beyond MaxFormats.
    [[nodiscard]] int formatsLeftOut() const { return m_formatsLeftOut; }

    /// Ends the last paragraph and hands everything over.
    [[nodiscard]] RichTextFragment take(const ParagraphFormat& format);

private:
    static constexpr int MaxWaitingTabs = 256;

    void beforeText();
    void grow(qsizetype length);
    void appendCodePoint(char16_t high, char16_t low);
    void closeParagraph(const ParagraphFormat& format);

    RichTextFragment m_fragment;
    QHash<CharacterFormat, int> m_formatIndex;
    int m_format = -1;
    int m_formatsLeftOut = 0;
    /// Of that format.
    int m_halfPoints = 0;

    // The paragraph that is being read.
    QString m_text;
    std::vector<TextRun> m_runs;
    bool m_labelSeen = false;
    char16_t m_highSurrogate = 0;

    // The row that is being read.
    int m_waitingTabs = 0;
    bool m_inRow = false;
    ParagraphFormat m_rowFormat;

    qsizetype m_textUnits = 0;
    qsizetype m_runCount = 0;
    bool m_full = false;
    MemoryBound m_memory;
};

} // namespace velmora
