#include "platform/drawing/line_printer.h"
#include "platform/drawing/line_shape.h"
#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box_private.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QSet>

#include <algorithm>

namespace velmora {

namespace {

std::vector<StyledText> styledRuns(const QTextDocument& document, DocumentRange range) {
    std::vector<StyledText> result;
    const RichTextFragment fragment = fragmentOf(document, range.begin, range.end);
    const Paragraph& paragraph = fragment.paragraphs.front();
    int done = 0;
    for (const TextRun& run : paragraph.runs) {
        result.push_back({paragraph.text.mid(done, run.length), formatAt(fragment, run.format)});
        done += run.length;
    }
    return result;
}

/// Families that the machine does not have, as far as any format names them, whether or not the
/// text still uses it.
QSet<QString> missingNames(const QList<QTextFormat>& formats) {
    QSet<QString> names;
    for (const QTextFormat& format : formats) {
        const QString name =
            format.isCharFormat() ? fromTextFormat(format.toCharFormat()).fontName : QString();
        if (!name.isEmpty() && !names.contains(name) && !QFontDatabase::hasFamily(name)) {
            names.insert(name);
        }
    }
    return names;
}

/// Those that the text uses, in the order in which it shows them first, at most so many. The text
/// may be long, and is left as soon as all have come.
QStringList usedNamesOf(QSet<QString> names, qsizetype most, const QTextDocument& document) {
    QStringList used;
    QSet<int> seenFormats;
    const QList<QTextFormat> formats = document.allFormats();
    if (names.isEmpty()) {
        return used;
    }
    visitCells(document, {0, document.characterCount() - 1}, [&](const FormatCell& cell) {
        if (!cell.isEnd && !seenFormats.contains(cell.formatIndex)) {
            seenFormats.insert(cell.formatIndex);
            const QString name =
                fromTextFormat(formats.at(cell.formatIndex).toCharFormat()).fontName;
            if (names.remove(name)) {
                used.append(name);
            }
        }
        return !names.isEmpty() && used.size() < most;
    });
    return used;
}

/// Whether the order of a line's characters needs the rest of its paragraph.
bool needsParagraph(const LinePlace& place, DocumentRange range, bool rightToLeft) {
    if (place.block.lineCount() < 2 || place.start() != range.begin ||
        range.end > range.begin + place.line.textLength())
        return false;
    return rightToLeft || runsRightToLeft(place.block.text());
}

/// Whether a range reaches the end of a line that was broken.
bool isWrapped(const LinePlace& place, DocumentRange range) {
    return place.line.lineNumber() < place.block.layout()->lineCount() - 1 &&
           range.end >= place.start() + place.line.textLength();
}

void print(Surface& target, const QTextDocument& document, const DocumentLayout& layout,
           DocumentRange range, const PrintBox& box, GlyphMaskCache& cache) {
    const LinePlace place = layout.lineOfPosition(range.begin);
    const std::vector<StyledText> runs = styledRuns(document, range);
    PrintBox directed = box;
    directed.rightToLeft = isRightToLeft(place.block);
    directed.roomForBlanks = isWrapped(place, range) ? 0 : place.line.width();
    if (needsParagraph(place, range, directed.rightToLeft)) {
        printLine(target, shapeLineOfParagraph(runs, place.line), runs, directed, cache);
    } else {
        printLine(target, runs, directed, cache);
    }
}

} // namespace

std::vector<StyledText> RichTextBox::styledText(int position, int length) const {
    return styledRuns(d->document, d->rangeOf(position, length));
}

void RichTextBox::printRange(Surface& target, int position, int length, const PrintBox& box,
                             GlyphMaskCache& cache) const {
    print(target, d->document, *d->layout, d->rangeOf(position, length), box, cache);
}

void RichTextBox::SelPrint(Surface& target, const PrintBox& box, GlyphMaskCache& cache) const {
    print(target, d->document, *d->layout, d->selected(), box, cache);
}

std::vector<RichTextBox::MissingFont> RichTextBox::missingFonts() const {
    // A substitute takes about a millisecond to find, and more names than these tell nobody more.
    constexpr qsizetype mostNames = 32;
    std::vector<MissingFont> result;
    const QSet<QString> missing = missingNames(d->document.allFormats());
    for (const QString& name : usedNamesOf(missing, mostNames, d->document)) {
        const QString substitute = QFontInfo(QFont(name)).family();
        if (substitute.compare(name, Qt::CaseInsensitive) != 0) {
            result.push_back({name, substitute});
        }
    }
    std::sort(result.begin(), result.end(),
              [](const MissingFont& a, const MissingFont& b) { return a.name < b.name; });
    return result;
}

} // namespace velmora
