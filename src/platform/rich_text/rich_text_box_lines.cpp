#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/rich_text_box_private.h"

#include <QGlyphRun>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {

namespace {

/// 1 + floor(top * zoom), top in reference units.
int verticalPixels(double topUnits, double zoom) {
    const double pixels = 1 + std::floor(topUnits * zoom / UnitsPerPixel);
    return static_cast<int>(std::min(pixels, double{std::numeric_limits<int>::max()}));
}

/// Of the characters from begin to end, in reference units, as if they stood in one line.
double widthOf(const QTextLayout& lines, int begin, int end) {
    double width = 0;
    while (begin < end) {
        const QTextLine line = lines.lineForTextPosition(begin);
        const int stop = std::min(end, line.textStart() + line.textLength());
        if (!line.isValid() || stop <= begin) {
            break;
        }
        // Not from cursor positions: beside text of the other direction they have two places.
        for (const QGlyphRun& run : line.glyphRuns(begin, stop - begin)) {
            width += run.boundingRect().width();
        }
        begin = stop;
    }
    return width;
}

double widestWordOf(const QTextBlock& block, double atMostUnits) {
    const QString text = block.text();
    QTextBoundaryFinder places(QTextBoundaryFinder::Line, text);
    double widest = 0;
    for (qsizetype begin = 0, next = places.toNextBoundary(); next > 0;
         begin = next, next = places.toNextBoundary()) {
        qsizetype end = next;
        while (end > begin && text.at(end - 1).isSpace()) {
            --end;
        }
        const double width =
            widthOf(*block.layout(), static_cast<int>(begin), static_cast<int>(end));
        widest = std::max(widest, width <= atMostUnits ? width : 0);
    }
    return widest;
}

} // namespace

int RichTextBox::Find(const QString& text, int start) {
    if (text.isEmpty()) {
        return -1;
    }
    const qsizetype found = Text().indexOf(text, std::max(0, start), Qt::CaseInsensitive);
    if (found < 0) {
        return -1;
    }
    const int position = static_cast<int>(found);
    select(position, position + static_cast<int>(text.size()));
    return position;
}

int RichTextBox::GetLineFromChar(int position) const {
    return d->layout->lineOfPosition(toDocument(position)).number;
}

int RichTextBox::lineIndex(int line) const {
    const LinePlace place = d->layout->lineAt(line);
    return place.isValid() ? fromDocument(place.start()) : -1;
}

int RichTextBox::lineLength(int position) const {
    const LinePlace place = d->layout->lineOfPosition(toDocument(position));
    const int length = place.line.textLength();
    const bool hasLineEnd = length > 0 && d->document.characterAt(place.start() + length - 1) ==
                                              QChar(QChar::LineSeparator);
    return hasLineEnd ? length - 1 : length;
}

int RichTextBox::lineCount() const {
    return d->layout->lineCount();
}

int RichTextBox::verticalPosition(int position) const {
    return verticalPixels(d->layout->lineOfPosition(toDocument(position)).top, d->zoom);
}

std::vector<RichTextBox::LineMetrics> RichTextBox::lineMetrics(int count) const {
    const int wanted = std::clamp(count, 0, lineCount());
    std::vector<LineMetrics> result;
    result.reserve(static_cast<size_t>(wanted));
    const QString& text = Text();
    int blockNumber = 0;
    int blockIndex = 0;
    for (QTextBlock block = d->document.begin(); block.isValid(); block = block.next()) {
        const QTextLayout* lines = block.layout();
        const double top = d->layout->topOfBlock(blockNumber);
        for (int i = 0; i < lines->lineCount(); ++i) {
            if (static_cast<int>(result.size()) == wanted) {
                return result;
            }
            const QTextLine line = lines->lineAt(i);
            const int index = blockIndex + line.textStart();
            int length = line.textLength();
            // Text that is being composed by an input method is in the lines but not in the text.
            if (length > 0 && index + length <= text.size() &&
                text.at(index + length - 1) == u'\v') {
                --length;
            }
            result.push_back({index, length, verticalPixels(top + line.y(), d->zoom)});
        }
        // A line end counts as two positions, and as one in the length of a block.
        blockIndex += block.length() + 1;
        ++blockNumber;
    }
    return result;
}

double RichTextBox::widestWord(double atMost) const {
    static_cast<void>(d->layout->lineCount()); // Lays out what is not laid out yet.
    double widest = 0;
    for (QTextBlock block = d->document.begin(); block.isValid(); block = block.next()) {
        widest = std::max(widest, widestWordOf(block, atMost * UnitsPerPixel));
    }
    return widest / UnitsPerPixel;
}

double RichTextBox::lineHeight(int line) const {
    const LinePlace place = d->layout->lineAt(line);
    return place.height * d->zoom / UnitsPerPixel;
}

} // namespace velmora
