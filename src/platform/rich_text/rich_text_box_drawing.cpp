#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/rich_text_box_private.h"

#include "platform/drawing/line_printer.h"
#include "platform/rich_text/fragment_text.h"

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

QSet<QString> usedFontNames(const QTextDocument& document) {
    QSet<QString> names;
    QSet<int> seen;
    const QList<QTextFormat> formats = document.allFormats();
    visitCells(document, {0, document.characterCount() - 1}, [&](const FormatCell& cell) {
        if (!cell.isEnd && !seen.contains(cell.formatIndex)) {
            seen.insert(cell.formatIndex);
            names.insert(fromTextFormat(formats.at(cell.formatIndex).toCharFormat()).fontName);
        }
        return true;
    });
    return names;
}

} // namespace

std::vector<StyledText> RichTextBox::styledText(int position, int length) const {
    return styledRuns(d->document, d->rangeOf(position, length));
}

bool RichTextBox::isRightToLeft(int position) const {
    const QTextBlock block = d->document.findBlock(toDocument(position));
    return fromBlockFormat(block.blockFormat()).rightToLeft;
}

void RichTextBox::SelPrint(Surface& target, const PrintBox& box, GlyphMaskCache& cache) const {
    const DocumentRange range = d->selected();
    const QTextBlock block = d->document.findBlock(range.begin);
    PrintBox directed = box;
    directed.rightToLeft = fromBlockFormat(block.blockFormat()).rightToLeft;
    printLine(target, styledRuns(d->document, range), directed, cache);
}

std::vector<RichTextBox::MissingFont> RichTextBox::missingFonts() const {
    std::vector<MissingFont> result;
    for (const QString& name : usedFontNames(d->document)) {
        if (name.isEmpty() || QFontDatabase::hasFamily(name)) {
            continue;
        }
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
