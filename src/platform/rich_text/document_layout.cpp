#include "platform/rich_text/document_layout.h"

#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/long_words.h"

#include <QPainter>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double Marked = -1;
constexpr double UnitsPerTwip = 0.4;
constexpr QTextOption::WrapMode WrapMode = QTextOption::WrapAtWordBoundaryOrAnywhere;
/// QTextLine keeps its place in 26.6 fixed point numbers. Lines of one paragraph that would stand
/// lower (a paragraph of 2 MB at 26 points does) share this place; following paragraphs are right.
constexpr double MaxLineTop = 33'000'000;

/// Lines must keep room: offsets take at most half of the width.
double offsetUnits(int twips, double wrapWidth) {
    return std::clamp(twips * UnitsPerTwip, 0.0, wrapWidth / 2);
}

Qt::Alignment qtAlignment(Alignment alignment) {
    switch (alignment) {
    case Alignment::Right:
        return Qt::AlignRight | Qt::AlignAbsolute;
    case Alignment::Centre:
        return Qt::AlignHCenter;
    case Alignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

QTextOption optionFor(const ParagraphFormat& format, bool rightToLeft) {
    QTextOption option(qtAlignment(format.alignment));
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(WrapMode);
    option.setUseDesignMetrics(true);
    option.setTabStopDistance(TabDistanceUnits);
    return option;
}

/// Whether blanks at a line's end move the text that they follow.
bool blanksMatter(Alignment alignment, bool rightToLeft) {
    return alignment != (rightToLeft ? Alignment::Right : Alignment::Left);
}

/// The text layout lets blanks hang over the edge at a break; at the end of a paragraph they count
/// for the alignment, unless the line is moved by this much.
double hangingShift(const QTextLine& line, const QString& text, Alignment alignment,
                    bool rightToLeft) {
    const int begin = line.textStart();
    const int end = begin + line.textLength();
    if (end != text.size()) {
        return 0;
    }
    int inkEnd = end;
    while (inkEnd > begin && (text[inkEnd - 1] == u' ' || text[inkEnd - 1] == u'\t')) {
        --inkEnd;
    }
    if (inkEnd == end || inkEnd == begin) {
        return 0;
    }
    const double blanks = std::abs(line.cursorToX(end) - line.cursorToX(inkEnd));
    const double share = alignment == Alignment::Centre ? 0.5 : 1;
    return (rightToLeft ? -share : share) * blanks;
}

/// Number of the last line of a paragraph of which a condition holds that holds of no line behind
/// it; 0 where it holds of none.
template<typename Condition> int lastLineThat(const QTextLayout& layout, const Condition& holds) {
    int low = 0;
    int high = layout.lineCount() - 1;
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (holds(layout.lineAt(middle))) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return low;
}

} // namespace

DocumentLayout::DocumentLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {
    markAll();
}

void DocumentLayout::setWrapWidth(double units) {
    const double width = std::max(units, MinWrapWidth);
    if (width == m_wrapWidth) {
        return;
    }
    m_wrapWidth = width;
    markAll();
}

void DocumentLayout::markAll() const {
    const int count = document()->blockCount();
    m_heights.assign(static_cast<size_t>(count), Marked);
    m_topsValid = 0;
    m_firstMarked = 0;
    m_lastMarked = count - 1;
}

void DocumentLayout::documentChanged(int from, int charsRemoved, int charsAdded) {
    Q_UNUSED(charsRemoved)
    const int oldCount = static_cast<int>(m_heights.size());
    const int newCount = document()->blockCount();
    const int last = std::max(0, document()->characterCount() - 1);
    const int first = document()->findBlock(std::clamp(from, 0, last)).blockNumber();
    const int lastChanged =
        document()->findBlock(std::clamp(from + charsAdded, 0, last)).blockNumber();
    const int inserted = lastChanged - first + 1;
    const int replaced = inserted - (newCount - oldCount);
    if (first < 0 || lastChanged < first || replaced < 0 || first + replaced > oldCount) {
        markAll();
        return;
    }
    const auto begin = m_heights.begin() + first;
    m_heights.insert(m_heights.erase(begin, begin + replaced), static_cast<size_t>(inserted),
                     Marked);
    m_topsValid = std::min(m_topsValid, first);
    if (m_lastMarked < m_firstMarked) {
        m_firstMarked = first;
        m_lastMarked = lastChanged;
        return;
    }
    m_firstMarked = std::min(m_firstMarked, first);
    m_lastMarked = m_lastMarked < first ? lastChanged
                                        : std::max(lastChanged, m_lastMarked + newCount - oldCount);
}

void DocumentLayout::ensureLaidOut() const {
    layOut({});
}

void DocumentLayout::layOut(const Progress& goesOn) const {
    if (static_cast<int>(m_heights.size()) != document()->blockCount()) {
        // A listener asks in the middle of a change, of which the layout is told last.
        markAll();
    }
    if (m_lastMarked < m_firstMarked) {
        return;
    }
    const int first = m_firstMarked;
    const int last = m_lastMarked;
    m_firstMarked = 0;
    m_lastMarked = -1;
    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last && block.isValid(); ++number, block = block.next()) {
        if (goesOn && !goesOn(static_cast<double>(number - first) / (last - first + 1))) {
            m_firstMarked = number;
            m_lastMarked = last;
            return;
        }
        double& height = m_heights[static_cast<size_t>(number)];
        if (height == Marked) {
            height = layOutBlock(block);
        }
    }
}

double DocumentLayout::layOutBlock(QTextBlock block) const {
    const ParagraphFormat format = fromBlockFormat(block.blockFormat());
    const int indent = format.leftOffsetTwips + format.firstLineOffsetTwips;
    const bool mayHoldLongWords = block.length() > LongWords::MaxWordLength;
    const bool rightToLeft = isRightToLeft(block);
    const bool lineEndsMatter = blanksMatter(format.alignment, rightToLeft) && block.length() > 1;
    const QString text = mayHoldLongWords || lineEndsMatter ? block.text() : QString();
    LongWords longWords(mayHoldLongWords ? text : QString());
    QTextLayout* layout = block.layout();
    QTextOption option = optionFor(format, rightToLeft);
    layout->setTextOption(option);
    layout->beginLayout();
    double y = 0;
    int begin = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        if (mayHoldLongWords) {
            option.setWrapMode(longWords.holds(begin) ? QTextOption::WrapAnywhere : WrapMode);
            layout->setTextOption(option);
        }
        const double offset =
            offsetUnits(line.lineNumber() == 0 ? indent : format.leftOffsetTwips, m_wrapWidth);
        line.setLeadingIncluded(true);
        line.setLineWidth(m_wrapWidth - offset);
        const double shift =
            lineEndsMatter ? hangingShift(line, text, format.alignment, rightToLeft) : 0;
        line.setPosition(QPointF((rightToLeft ? 0 : offset) + shift, std::min(y, MaxLineTop)));
        y += line.height();
        begin = line.textStart() + line.textLength();
    }
    layout->endLayout();
    if (block.lineCount() != layout->lineCount()) {
        block.setLineCount(layout->lineCount());
    }
    return y;
}

int DocumentLayout::lineCount() const {
    ensureLaidOut();
    const QTextBlock last = document()->lastBlock();
    return last.firstLineNumber() + last.lineCount();
}

LinePlace DocumentLayout::lineAt(int number) const {
    ensureLaidOut();
    const QTextBlock block = number < 0 ? QTextBlock() : document()->findBlockByLineNumber(number);
    return block.isValid() ? lineOfBlock(block, number - block.firstLineNumber()) : LinePlace();
}

LinePlace DocumentLayout::lineOfPosition(int documentPosition) const {
    ensureLaidOut();
    const int last = document()->characterCount() - 1;
    const int position = std::clamp(documentPosition, 0, last);
    const QTextBlock block = document()->findBlock(position);
    const int inBlock = position - block.position();
    return lineOfBlock(block, lastLineThat(*block.layout(), [inBlock](const QTextLine& line) {
                           return line.textStart() <= inBlock;
                       }));
}

LinePlace DocumentLayout::lineAtHeight(double units) const {
    ensureLaidOut();
    (void)height();
    const auto after = std::upper_bound(m_tops.begin(), m_tops.end() - 1, units);
    const auto number = std::max<std::ptrdiff_t>(0, after - m_tops.begin() - 1);
    const QTextBlock block = document()->findBlockByNumber(static_cast<int>(number));
    const double inside = units - blockTop(block);
    return lineOfBlock(block, lastLineThat(*block.layout(), [inside](const QTextLine& line) {
                           return line.y() <= inside;
                       }));
}

LinePlace DocumentLayout::lineOfBlock(const QTextBlock& block, int lineInBlock) const {
    ensureLaidOut();
    const QTextLayout* layout = block.layout();
    if (lineInBlock < 0 || lineInBlock >= layout->lineCount()) {
        return {};
    }
    LinePlace place;
    place.block = block;
    place.line = layout->lineAt(lineInBlock);
    place.number = block.firstLineNumber() + lineInBlock;
    place.top = blockTop(block) + place.line.y();
    place.height = place.line.height();
    return place;
}

double DocumentLayout::topOfBlock(int blockNumber) const {
    ensureLaidOut();
    m_tops.resize(m_heights.size() + 1);
    for (; m_topsValid < blockNumber; ++m_topsValid) {
        const auto index = static_cast<size_t>(m_topsValid);
        m_tops[index + 1] = m_tops[index] + m_heights[index];
    }
    return m_tops[static_cast<size_t>(blockNumber)];
}

double DocumentLayout::blockTop(const QTextBlock& block) const {
    return topOfBlock(block.blockNumber());
}

double DocumentLayout::blockHeight(const QTextBlock& block) const {
    ensureLaidOut();
    return m_heights[static_cast<size_t>(block.blockNumber())];
}

double DocumentLayout::height() const {
    ensureLaidOut();
    return topOfBlock(static_cast<int>(m_heights.size()));
}

void DocumentLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    for (QTextBlock block = lineAtHeight(clip.top()).block; block.isValid(); block = block.next()) {
        const double top = blockTop(block);
        if (top > clip.bottom()) {
            return;
        }
        block.layout()->draw(painter, QPointF(0, top), {}, clip);
    }
}

int DocumentLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    Q_UNUSED(accuracy)
    const LinePlace place = lineAtHeight(point.y());
    return place.block.position() + place.line.xToCursor(point.x());
}

QSizeF DocumentLayout::documentSize() const {
    return {m_wrapWidth, height()};
}

QRectF DocumentLayout::frameBoundingRect(QTextFrame* frame) const {
    Q_UNUSED(frame)
    return {QPointF(), documentSize()};
}

QRectF DocumentLayout::blockBoundingRect(const QTextBlock& block) const {
    return block.isValid() ? QRectF(0, blockTop(block), m_wrapWidth, blockHeight(block)) : QRectF();
}

} // namespace velmora
