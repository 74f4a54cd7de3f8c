#include "platform/rich_text/fragment_text.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr char16_t LineTabulation = u'\v';
constexpr char16_t FormFeed = u'\f';
constexpr char16_t FileSeparator = 0x1C;
constexpr char16_t RecordSeparator = 0x1E;
constexpr char16_t Delete = 0x7F;
constexpr char16_t NextLine = 0x85;
constexpr char16_t LastControl = 0x9F;
constexpr char16_t LineSeparator = u'\u2028';
constexpr char16_t ParagraphSeparator = u'\u2029';
// Noncharacters with which a text document frames its own structure.
constexpr char16_t FrameBegin = u'\uFDD0';
constexpr char16_t FrameEnd = u'\uFDD1';

bool endsParagraph(QChar character) {
    const char16_t unit = character.unicode();
    return unit == u'\r' || unit == u'\n' || unit == FormFeed || unit == NextLine ||
           unit == ParagraphSeparator || (unit >= FileSeparator && unit <= RecordSeparator);
}

/// Nothing that a reader sees, nor a line end; but a word may end there.
bool isControl(QChar character) {
    const char16_t unit = character.unicode();
    return (unit < u' ' && unit != u'\t' && unit != LineTabulation) ||
           (unit >= Delete && unit <= LastControl);
}

/// Steps over one line end, for which CR LF counts.
qsizetype behindLineEnd(QStringView text, qsizetype at) {
    const bool isPair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
    return at + (isPair ? 2 : 1);
}

QString withoutControls(QStringView line) {
    QString text = line.toString();
    if (std::any_of(line.begin(), line.end(), isControl)) {
        std::replace_if(text.begin(), text.end(), isControl, QChar(u' '));
    }
    return text;
}

bool isForeign(QChar character) {
    const char16_t unit = character.unicode();
    return unit == LineTabulation || unit == u'\r' || unit == u'\n' || unit == ParagraphSeparator ||
           unit == FrameBegin || unit == FrameEnd;
}

/// Steps through the runs of a paragraph, one stretch of equal format after the other.
class RunCursor final {
public:
    RunCursor(const RichTextFragment& owner, const Paragraph& paragraph)
        : m_owner(owner), m_runs(paragraph.runs) {
        skipEmpty();
    }

    [[nodiscard]] bool atEnd() const { return m_index >= m_runs.size(); }
    [[nodiscard]] int left() const { return m_runs[m_index].length - m_used; }
    [[nodiscard]] const CharacterFormat& format() const {
        return formatAt(m_owner, m_runs[m_index].format);
    }
    void advance(int length) {
        m_used += length;
        skipEmpty();
    }

private:
    void skipEmpty() {
        while (!atEnd() && left() <= 0) {
            ++m_index;
            m_used = 0;
        }
    }

    const RichTextFragment& m_owner;
    const std::vector<TextRun>& m_runs;
    size_t m_index = 0;
    int m_used = 0;
};

struct UnitRange final {
    char16_t first;
    char16_t last;
};

/// UTF-16 units of which text from right to left consists, or which turn text around.
constexpr UnitRange RightToLeftUnits[] = {
    {0x0590, 0x08ff}, // Hebrew to the last Arabic block
    {0x200f, 0x200f}, {0x202b, 0x202b}, {0x202e, 0x202e}, {0x2067, 0x2067}, // marks and overrides
    {0xd802, 0xd803}, {0xd83a, 0xd83b},                                     // high surrogates
    {0xfb1d, 0xfdff}, {0xfe70, 0xfeff},                                     // presentation forms
};

} // namespace

RichTextFragment fragmentOfText(QStringView text, const CharacterFormat& format,
                                const ParagraphFormat& paragraphFormat) {
    RichTextFragment result;
    result.formats.push_back(format);
    const auto addParagraph = [&](QStringView line) {
        Paragraph paragraph;
        paragraph.text = paragraphText(withoutControls(line));
        if (!line.isEmpty()) {
            paragraph.runs.push_back({static_cast<int>(line.size()), 0});
        }
        paragraph.format = paragraphFormat;
        result.paragraphs.push_back(std::move(paragraph));
    };
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size();) {
        if (!endsParagraph(text[i])) {
            ++i;
            continue;
        }
        addParagraph(text.sliced(start, i - start));
        i = start = behindLineEnd(text, i);
    }
    addParagraph(text.sliced(start));
    return result;
}

qsizetype paragraphCount(QStringView text) {
    qsizetype count = 1;
    for (qsizetype i = 0; i < text.size();) {
        const bool isEnd = endsParagraph(text[i]);
        count += isEnd ? 1 : 0;
        i = isEnd ? behindLineEnd(text, i) : i + 1;
    }
    return count;
}

QString textOfFragment(const RichTextFragment& fragment) {
    QString result;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        if (&paragraph != &fragment.paragraphs.front()) {
            result += u"\r\n";
        }
        result += paragraphText(paragraph.text);
    }
    return result.replace(QChar(LineSeparator), QChar(LineTabulation));
}

QString paragraphText(const QString& text) {
    if (std::none_of(text.begin(), text.end(), isForeign)) {
        return text;
    }
    QString result = text;
    for (QChar& character : result) {
        if (character == FrameBegin || character == FrameEnd) {
            character = QChar::ReplacementCharacter;
        } else if (isForeign(character)) {
            character = QChar(LineSeparator);
        }
    }
    return result;
}

bool sameParagraph(const RichTextFragment& leftOwner, const Paragraph& left,
                   const RichTextFragment& rightOwner, const Paragraph& right) {
    if (left.format != right.format || left.text != right.text ||
        formatAt(leftOwner, left.endFormat) != formatAt(rightOwner, right.endFormat)) {
        return false;
    }
    RunCursor leftRun(leftOwner, left);
    RunCursor rightRun(rightOwner, right);
    while (!leftRun.atEnd() && !rightRun.atEnd()) {
        if (leftRun.format() != rightRun.format()) {
            return false;
        }
        const int length = std::min(leftRun.left(), rightRun.left());
        leftRun.advance(length);
        rightRun.advance(length);
    }
    return leftRun.atEnd() && rightRun.atEnd();
}

bool sameContents(const RichTextFragment& left, const RichTextFragment& right) {
    return std::equal(left.paragraphs.begin(), left.paragraphs.end(), right.paragraphs.begin(),
                      right.paragraphs.end(), [&](const Paragraph& a, const Paragraph& b) {
                          return sameParagraph(left, a, right, b);
                      });
}

const CharacterFormat& formatAt(const RichTextFragment& fragment, int index) {
    static const CharacterFormat none;
    const auto place = static_cast<size_t>(index);
    return index >= 0 && place < fragment.formats.size() ? fragment.formats[place] : none;
}

bool isRightToLeft(Direction direction, QStringView text) {
    return direction == Direction::FromText ? text.isRightToLeft()
                                            : direction == Direction::RightToLeft;
}

bool runsRightToLeft(QStringView text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.unicode() >= RightToLeftUnits[0].first &&
               std::any_of(std::begin(RightToLeftUnits), std::end(RightToLeftUnits),
                           [unit = character.unicode()](const UnitRange& range) {
                               return unit >= range.first && unit <= range.last;
                           });
    });
}

} // namespace velmora
