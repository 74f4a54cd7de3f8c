#include "platform/rich_text/long_paragraphs.h"

#include "platform/rich_text/fragment_text.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>

namespace velmora::long_paragraphs {

namespace {

/// Length of the text up to where more marks stand upon one character than a line can bear, each of
/// them drawn at the same place; the whole length in a text of words.
qsizetype lengthToStack(QStringView text, qsizetype mostMarks) {
    constexpr char16_t firstMark = 0x300;
    qsizetype marks = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        marks = text[i].unicode() >= firstMark && text[i].isMark() ? marks + 1 : 0;
        if (marks > mostMarks) {
            return i;
        }
    }
    return text.size();
}

bool isTooLong(const Paragraph& paragraph) {
    return paragraph.text.size() > MaxUnits ||
           paragraph.runs.size() > static_cast<std::size_t>(MaxRuns) ||
           lengthToStack(paragraph.text, MaxMarks) < paragraph.text.size();
}

/// The last place in a text's second half where a line may break, or a character ends.
qsizetype lastBoundary(QStringView text, QTextBoundaryFinder::BoundaryType type) {
    QTextBoundaryFinder finder(type, text.data(), text.size());
    finder.setPosition(text.size() - 1);
    const qsizetype found = finder.isAtBoundary() ? text.size() - 1 : finder.toPreviousBoundary();
    return found > text.size() / 2 ? found : -1;
}

/// How much of a text that is longer goes into a piece of its own. A line end in front of the
/// break is part of it.
qsizetype lengthOfPiece(QStringView piece) {
    const auto half = piece.begin() + piece.size() / 2;
    const auto behindLast = [&](auto isOne) {
        const auto found = std::find_if(std::make_reverse_iterator(piece.end()),
                                        std::make_reverse_iterator(half), isOne);
        return found.base() == half ? -1 : found.base() - piece.begin();
    };
    qsizetype length = behindLast([](QChar c) { return c == QChar::LineSeparator; });
    if (length < 0) {
        length = behindLast([](QChar c) { return c == u' ' || c == u'\t'; });
    }
    if (length < 0) {
        length = lastBoundary(piece, QTextBoundaryFinder::Line);
    }
    if (length < 0) {
        length = lastBoundary(piece, QTextBoundaryFinder::Grapheme);
    }
    if (length < 0) {
        length = piece.size() - (piece.back().isHighSurrogate() ? 1 : 0);
    }
    return length;
}

/// Takes pieces off the front of a paragraph.
class Cutter final {
public:
    explicit Cutter(Paragraph whole) : m_whole(std::move(whole)) {
        // Its pieces are read as the whole is, whatever letters they begin with.
        m_whole.format.direction = isRightToLeft(m_whole.format.direction, m_whole.text)
                                       ? Direction::RightToLeft
                                       : Direction::LeftToRight;
    }

    [[nodiscard]] bool atEnd() const { return m_at >= m_whole.text.size(); }

    Paragraph next() {
        const QStringView rest = QStringView(m_whole.text).sliced(m_at);
        const auto units = std::min<qsizetype>({UnitsOfAPiece, unitsOfRuns(), rest.size()});
        const qsizetype most = lengthToStack(rest.first(units), MarksOfAPiece);
        const qsizetype length =
            rest.size() <= most ? rest.size() : lengthOfPiece(rest.first(most));
        const bool endsLine =
            m_at + length < m_whole.text.size() && rest[length - 1] == QChar::LineSeparator;
        Paragraph piece;
        piece.format = m_whole.format;
        piece.endFormat = m_whole.endFormat;
        piece.text = rest.first(length - (endsLine ? 1 : 0)).toString();
        takeRuns(piece, static_cast<int>(piece.text.size()));
        if (endsLine) {
            Paragraph lineEnd;
            takeRuns(lineEnd, 1);
            piece.endFormat = lineEnd.runs.empty() ? piece.endFormat : lineEnd.runs.front().format;
        } else if (!piece.runs.empty() && m_at < m_whole.text.size()) {
            piece.endFormat = piece.runs.back().format;
        }
        return piece;
    }

private:
    /// Length of as many runs as a piece may have.
    [[nodiscard]] qsizetype unitsOfRuns() const {
        qsizetype units = 0;
        const std::size_t end =
            std::min(m_run + static_cast<std::size_t>(RunsOfAPiece), m_whole.runs.size());
        for (std::size_t run = m_run; run < end; ++run) {
            units += m_whole.runs[run].length;
        }
        return std::max<qsizetype>(units - m_used, 1);
    }

    void takeRuns(Paragraph& piece, int length) {
        m_at += length;
        while (length > 0 && m_run < m_whole.runs.size()) {
            const TextRun& run = m_whole.runs[m_run];
            const int taken = std::min(length, run.length - m_used);
            piece.runs.push_back({taken, run.format});
            length -= taken;
            m_used += taken;
            if (m_used == run.length) {
                ++m_run;
                m_used = 0;
            }
        }
    }

    Paragraph m_whole;
    qsizetype m_at = 0;
    std::size_t m_run = 0;
    /// Of the run at m_run.
    int m_used = 0;
};

} // namespace

int longestOf(const RichTextFragment& text) {
    qsizetype longest = 0;
    for (const Paragraph& paragraph : text.paragraphs) {
        longest = std::max(longest, isTooLong(paragraph) ? paragraph.text.size() : 0);
    }
    return static_cast<int>(longest);
}

void breakUp(RichTextFragment& text) {
    std::vector<Paragraph> result;
    result.reserve(text.paragraphs.size());
    for (Paragraph& paragraph : text.paragraphs) {
        if (!isTooLong(paragraph)) {
            result.push_back(std::move(paragraph));
            continue;
        }
        Cutter cutter(std::move(paragraph));
        while (!cutter.atEnd()) {
            result.push_back(cutter.next());
        }
    }
    text.paragraphs = std::move(result);
}

} // namespace velmora::long_paragraphs
