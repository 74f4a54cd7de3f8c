#include "platform/rich_text/fragment_document.h"

#include "platform/rich_text/fragment_format_numbers.h"
#include "platform/rich_text/fragment_text.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

#include <algorithm>
#include <unordered_map>

namespace velmora {

namespace {

/// Paragraph properties are kept as whole twips of our own: the document's own margins are real
/// numbers in pixels.
enum BlockProperty : int {
    LeftOffset = QTextFormat::UserProperty + 1,
    FirstLineOffset,
};

/// Formats of a document as numbers of a fragment, each translated once.
class FormatCollector final {
public:
    explicit FormatCollector(std::vector<CharacterFormat>& formats) : m_formats(formats) {}

    template<typename Holder> int number(const Holder& holder) {
        const auto [place, isNew] = m_numbers.try_emplace(holder.charFormatIndex(), 0);
        if (isNew) {
            place->second = numberOf(fromTextFormat(holder.charFormat()));
        }
        return place->second;
    }

private:
    int numberOf(const CharacterFormat& format) {
        const auto [number, isNew] = m_numberOfFormat.of(format);
        if (isNew) {
            m_formats.push_back(format);
        }
        return number;
    }

    /// Empty at first: numbers are places in it.
    std::vector<CharacterFormat>& m_formats;
    /// By the document's own number of a format, and by what it looks like.
    std::unordered_map<int, int> m_numbers;
    FormatNumbers m_numberOfFormat;
};

Paragraph paragraphOf(const QTextBlock& block, int begin, int end, FormatCollector& formats) {
    Paragraph result;
    result.format = fromBlockFormat(block.blockFormat());
    result.endFormat = formats.number(block);
    const int start = block.position();
    const int from = std::max(begin, start);
    const int to = std::min(end, start + block.length() - 1);
    if (from >= to) {
        return result;
    }
    result.text = block.text().mid(from - start, to - from);
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextFragment run = part.fragment();
        const int length =
            std::min(run.position() + run.length(), to) - std::max(run.position(), from);
        if (length <= 0) {
            continue;
        }
        const int format = formats.number(run);
        if (!result.runs.empty() && result.runs.back().format == format) {
            result.runs.back().length += length;
        } else {
            result.runs.push_back({length, format});
        }
    }
    return result;
}

void setParagraphFormats(QTextDocument& document, int position, const QTextBlockFormat& blockFormat,
                         const QTextCharFormat& endFormat) {
    QTextCursor cursor(&document);
    cursor.setPosition(position);
    if (cursor.blockFormat() != blockFormat) {
        cursor.setBlockFormat(blockFormat);
    }
    if (cursor.blockCharFormat() != endFormat) {
        cursor.setBlockCharFormat(endFormat);
    }
}

/// Writes a fragment into a document at a cursor, its formats translated once.
class FragmentInserter final {
public:
    FragmentInserter(QTextCursor& cursor, const std::vector<CharacterFormat>& formats)
        : m_cursor(cursor) {
        m_formats.reserve(formats.size());
        for (const CharacterFormat& format : formats) {
            m_formats.push_back(toTextFormat(format));
        }
    }

    void insertRuns(const Paragraph& paragraph) {
        const QString text = paragraphText(paragraph.text);
        if (paragraph.runs.size() == 1 && paragraph.runs.front().length >= text.size()) {
            m_cursor.insertText(text, format(paragraph.runs.front().format));
            return;
        }
        qsizetype done = 0;
        for (const TextRun& run : paragraph.runs) {
            m_cursor.insertText(text.mid(done, run.length), format(run.format));
            done += run.length;
        }
        if (done < text.size()) {
            m_cursor.insertText(text.mid(done), format(paragraph.endFormat));
        }
    }

    void insertParagraph(const Paragraph& paragraph) {
        if (!m_blockFormatKnown || m_paragraphFormat != paragraph.format) {
            m_paragraphFormat = paragraph.format;
            m_blockFormat = toBlockFormat(paragraph.format);
            m_blockFormatKnown = true;
        }
        m_cursor.insertBlock(m_blockFormat, format(paragraph.endFormat));
        insertRuns(paragraph);
    }

    [[nodiscard]] const QTextCharFormat& format(int number) const {
        const auto place = static_cast<size_t>(number);
        return number >= 0 && place < m_formats.size() ? m_formats[place] : m_defaultFormat;
    }

private:
    QTextCursor& m_cursor;
    std::vector<QTextCharFormat> m_formats;
    QTextCharFormat m_defaultFormat = toTextFormat({});
    ParagraphFormat m_paragraphFormat;
    QTextBlockFormat m_blockFormat;
    bool m_blockFormatKnown = false;
};

int endOf(const QTextDocument& document) {
    return document.characterCount() - 1;
}

} // namespace

QTextBlockFormat toBlockFormat(const ParagraphFormat& format) {
    QTextBlockFormat result;
    if (format.alignment != Alignment::Left) {
        result.setAlignment(format.alignment == Alignment::Right ? Qt::AlignRight
                                                                 : Qt::AlignHCenter);
    }
    if (format.direction != Direction::FromText) {
        const bool toTheLeft = format.direction == Direction::RightToLeft;
        result.setLayoutDirection(toTheLeft ? Qt::RightToLeft : Qt::LeftToRight);
    }
    if (format.leftOffsetTwips != 0) {
        result.setProperty(LeftOffset, format.leftOffsetTwips);
    }
    if (format.firstLineOffsetTwips != 0) {
        result.setProperty(FirstLineOffset, format.firstLineOffsetTwips);
    }
    return result;
}

ParagraphFormat fromBlockFormat(const QTextBlockFormat& format) {
    ParagraphFormat result;
    const Qt::Alignment alignment = format.alignment();
    if (alignment.testFlag(Qt::AlignRight)) {
        result.alignment = Alignment::Right;
    } else if (alignment.testFlag(Qt::AlignHCenter)) {
        result.alignment = Alignment::Centre;
    }
    if (const auto direction = format.layoutDirection(); direction != Qt::LayoutDirectionAuto) {
        result.direction =
            direction == Qt::RightToLeft ? Direction::RightToLeft : Direction::LeftToRight;
    }
    result.leftOffsetTwips = format.intProperty(LeftOffset);
    result.firstLineOffsetTwips = format.intProperty(FirstLineOffset);
    return result;
}

bool isRightToLeft(const QTextBlock& block) {
    const Direction direction = fromBlockFormat(block.blockFormat()).direction;
    if (direction != Direction::FromText) {
        return direction == Direction::RightToLeft;
    }
    QString text = block.text();
    const QTextLayout& layout = *block.layout();
    if (!layout.preeditAreaText().isEmpty()) {
        text.insert(layout.preeditAreaPosition(), layout.preeditAreaText());
    }
    return text.isRightToLeft();
}

RichTextFragment fragmentOf(const QTextDocument& document, int begin, int end) {
    RichTextFragment result;
    FormatCollector formats(result.formats);
    for (QTextBlock block = document.findBlock(begin); block.isValid(); block = block.next()) {
        result.paragraphs.push_back(paragraphOf(block, begin, end, formats));
        if (block.position() + block.length() > end) {
            break;
        }
    }
    return result;
}

RichTextFragment fragmentOf(const QTextDocument& document) {
    return fragmentOf(document, 0, endOf(document));
}

class RangeReplacement::Private final {
public:
    Private(QTextDocument& document, int begin, int end,
            const std::vector<CharacterFormat>& formats)
        : m_document(document), m_begin(begin), m_cursor(&document), m_inserter(m_cursor, formats) {
        const QTextBlock first = document.findBlock(begin);
        const QTextBlock last = document.findBlock(end);
        m_textInFront = begin > first.position();
        m_textBehind = end < last.position() + last.length() - 1;
        m_frontFormat = first.blockFormat();
        m_behindFormat = last.blockFormat();
        m_behindEnd = last.charFormat();
        m_isJoin = first != last;
        m_cursor.beginEditBlock();
        m_cursor.setPosition(begin);
        m_cursor.setPosition(end, QTextCursor::KeepAnchor);
        m_cursor.removeSelectedText();
    }

    void add(const Paragraph& paragraph) {
        if (m_added == 0) {
            m_headFormat = toBlockFormat(paragraph.format);
            m_headEnd = m_inserter.format(paragraph.endFormat);
            m_inserter.insertRuns(paragraph);
        } else {
            m_inserter.insertParagraph(paragraph);
        }
        ++m_added;
    }

    int finish() {
        const int behind = m_cursor.position();
        if (m_added > 1) {
            setParagraphFormats(m_document, m_begin, m_textInFront ? m_frontFormat : m_headFormat,
                                m_headEnd);
            if (m_textBehind) {
                setParagraphFormats(m_document, behind, m_behindFormat, m_behindEnd);
            }
        } else if (m_added == 1 && !m_textInFront && !m_textBehind) {
            setParagraphFormats(m_document, m_begin, m_headFormat, m_headEnd);
        } else if (m_isJoin) {
            setParagraphFormats(m_document, m_begin, m_textInFront ? m_frontFormat : m_behindFormat,
                                m_behindEnd);
        }
        m_cursor.endEditBlock();
        return behind;
    }

private:
    QTextDocument& m_document;
    int m_begin;
    QTextCursor m_cursor;
    FragmentInserter m_inserter;
    bool m_textInFront = false;
    bool m_textBehind = false;
    /// The replaced text lies in several paragraphs.
    bool m_isJoin = false;
    QTextBlockFormat m_frontFormat;
    QTextBlockFormat m_behindFormat;
    QTextCharFormat m_behindEnd;
    QTextBlockFormat m_headFormat;
    QTextCharFormat m_headEnd;
    size_t m_added = 0;
};

RangeReplacement::RangeReplacement(QTextDocument& document, int begin, int end,
                                   const std::vector<CharacterFormat>& formats)
    : d(std::make_unique<Private>(document, begin, end, formats)) {}

RangeReplacement::~RangeReplacement() = default;

void RangeReplacement::add(const Paragraph& paragraph) {
    d->add(paragraph);
}

int RangeReplacement::finish() {
    return d->finish();
}

int replaceRange(QTextDocument& document, int begin, int end, const RichTextFragment& fragment) {
    RangeReplacement replacement(document, begin, end, fragment.formats);
    for (const Paragraph& paragraph : fragment.paragraphs) {
        replacement.add(paragraph);
    }
    return replacement.finish();
}

namespace {

/// Paragraphs that two fragments have in common at the beginning and at the end.
struct Common final {
    size_t atBegin = 0;
    size_t atEnd = 0;
};

Common commonParagraphs(const RichTextFragment& left, const RichTextFragment& right) {
    const size_t most = std::min(left.paragraphs.size(), right.paragraphs.size());
    Common common;
    while (common.atBegin < most && sameParagraph(left, left.paragraphs[common.atBegin], right,
                                                  right.paragraphs[common.atBegin])) {
        ++common.atBegin;
    }
    while (common.atBegin + common.atEnd < most &&
           sameParagraph(left, left.paragraphs[left.paragraphs.size() - 1 - common.atEnd], right,
                         right.paragraphs[right.paragraphs.size() - 1 - common.atEnd])) {
        ++common.atEnd;
    }
    return common;
}

void fillFromScratch(QTextDocument& document, const RichTextFragment& fragment) {
    document.clear();
    replaceRange(document, 0, 0, fragment);
}

} // namespace

bool setContents(QTextDocument& document, const RichTextFragment& fragment,
                 const CharacterFormat& emptyFormat) {
    if (fragment.paragraphs.empty()) {
        return setContents(document, fragmentOfText({}, emptyFormat), emptyFormat);
    }
    const RichTextFragment old = fragmentOf(document);
    const size_t oldCount = old.paragraphs.size();
    const size_t newCount = fragment.paragraphs.size();
    Common common = commonParagraphs(old, fragment);
    if (common.atBegin == oldCount && oldCount == newCount) {
        return false;
    }
    if (common.atBegin + common.atEnd < std::max(oldCount, newCount) / 2) {
        fillFromScratch(document, fragment);
        return true;
    }
    // Both sides need a paragraph to stand for "nothing", for a line end goes with each.
    if (common.atBegin + common.atEnd == std::min(oldCount, newCount)) {
        (common.atBegin > 0 ? common.atBegin : common.atEnd) -= 1;
    }
    RichTextFragment middle;
    middle.formats = fragment.formats;
    middle.paragraphs.assign(fragment.paragraphs.begin() +
                                 static_cast<std::ptrdiff_t>(common.atBegin),
                             fragment.paragraphs.end() - static_cast<std::ptrdiff_t>(common.atEnd));
    const QTextBlock last =
        document.findBlockByNumber(static_cast<int>(oldCount - common.atEnd) - 1);
    replaceRange(document, document.findBlockByNumber(static_cast<int>(common.atBegin)).position(),
                 last.position() + last.length() - 1, middle);
    return true;
}

} // namespace velmora
