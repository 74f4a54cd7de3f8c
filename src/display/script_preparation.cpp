#include "display/script_preparation.h"

#include "core/line_spacing.h"
#include "core/number_format.h"
#include "core/script_marks.h"
#include "display/font_scale.h"
#include "platform/rich_text/rich_text_box.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr int ProgressEveryLines = 250;
constexpr int MeasuredShare = 225;
constexpr int CountedShare = 280;
constexpr int WholeShare = 295;
constexpr std::size_t SelectiveSlots = 11;
constexpr int DirectSelectiveLines = 8;

/// Rows that a height in unrounded rows fills: 0 to round(height - 1), both included.
int rowsOfHeight(double height) {
    return std::max(0, static_cast<int>(roundHalfEven(height - 1.0)) + 1);
}

void report(const PreparationProgress& progress, int line, int lineCount, int from, int share) {
    if (progress && line % ProgressEveryLines == 0) {
        progress(from + static_cast<int>(static_cast<double>(line) / lineCount * (share - from)));
    }
}

/// Height of the last line, which no following line tells: the tallest font used on it, and no less
/// than the line itself needs, whose letters may come from a substitute.
int lastLineHeight(RichTextBox& rtb1, const LineEntry& last, double fontScale) {
    double tallest = 0;
    for (const StyledText& run : rtb1.styledText(last.index, last.length)) {
        tallest = std::max(tallest, textHeight(run.format));
    }
    if (last.length == 0) {
        rtb1.setSelStart(last.index);
        CharacterFormat format = rtb1.defaultFormat();
        format.fontName = rtb1.SelFontName().value_or(format.fontName);
        format.halfPoints =
            static_cast<int>(2 * rtb1.SelFontSize().value_or(format.halfPoints / 2.0));
        tallest = textHeight(format);
    }
    const auto whole = static_cast<double>(roundHalfEven(tallest));
    const double natural = std::ceil(rtb1.lineHeight(rtb1.GetLineFromChar(last.index)));
    return static_cast<int>(
        std::max(roundHalfEven((whole - 1) * fontScale), static_cast<std::int64_t>(natural)));
}

/// Rows of each line: the distance to the next line, scaled by the spacing.
struct Measured final {
    LineTable lineTable;
    std::vector<int> rows;
    std::int64_t pixelHeight = 0;
};

Measured measure(RichTextBox& rtb1, const PreparationInput& input,
                 const PreparationProgress& progress) {
    const double factor = lineSpacingFactor(lineSpacingText(input.LineSpacingIndex));
    const std::vector<RichTextBox::LineMetrics> lines = rtb1.lineMetrics(input.ScriptLineCount);
    const int count = static_cast<int>(lines.size());
    Measured measured;
    measured.lineTable.reserve(lines.size());
    measured.rows.reserve(lines.size());
    for (int i = 0; i < count; ++i) {
        const RichTextBox::LineMetrics& line = lines[static_cast<std::size_t>(i)];
        measured.lineTable.push_back({line.index, line.length});
        const int before = i == 0 ? 1 : lines[static_cast<std::size_t>(i) - 1].y;
        const int height = static_cast<int>(std::floor((line.y - before) * factor));
        measured.pixelHeight += height;
        if (i > 0) {
            measured.rows.push_back(std::max(0, height));
        }
        report(progress, i, count, 0, MeasuredShare);
    }
    if (count > 0) {
        const double last =
            lastLineHeight(rtb1, measured.lineTable.back(), input.FontScale) * factor;
        measured.rows.push_back(rowsOfHeight(last));
        measured.pixelHeight += static_cast<std::int64_t>(roundHalfEven(last));
    }
    return measured;
}

/// Lines of every occurrence of a mark, a line once in a row, in text order.
std::vector<int> linesOfMark(const RichTextBox& rtb1, QChar mark) {
    std::vector<int> lines;
    const QString& text = rtb1.Text();
    for (qsizetype at = text.indexOf(mark); at >= 0; at = text.indexOf(mark, at + 1)) {
        // The position just behind the mark: a mark at the very end of a line counts to the next.
        const int line = rtb1.GetLineFromChar(static_cast<int>(at) + 1);
        if (lines.empty() || lines.back() != line) {
            lines.push_back(line);
        }
    }
    return lines;
}

void collectBookmarks(const RichTextBox& rtb1, ShowTables& tables) {
    tables.BookmarkLines = linesOfMark(rtb1, BookmarkMarker);
    const std::vector<int> selective = linesOfMark(rtb1, SelectiveBookmarkMarker);
    tables.BookmarkLines.insert(tables.BookmarkLines.end(), selective.begin(), selective.end());
    std::sort(tables.BookmarkLines.begin(), tables.BookmarkLines.end());
    tables.SelectiveBookmarkLines.assign(SelectiveSlots, std::nullopt);
    const auto direct = std::min<std::size_t>(selective.size(), DirectSelectiveLines);
    std::copy_n(selective.begin(), direct, tables.SelectiveBookmarkLines.begin() + 1);
}

} // namespace

ShowTables prepareScript(RichTextBox& rtb1, const PreparationInput& input,
                         const PreparationProgress& progress) {
    rtb1.setZoom(input.FontScale);
    Measured measured = measure(rtb1, input, progress);
    ShowTables tables;
    tables.lineTable = std::move(measured.lineTable);
    tables.ScriptPixelHeight = measured.pixelHeight;
    tables.LastScrollRow = tables.ScriptPixelHeight - 1 + input.leadInRows;
    if (progress) {
        progress(CountedShare);
    }
    tables.scanTable = ScanTable(measured.rows, input.leadInRows);
    collectBookmarks(rtb1, tables);
    if (progress) {
        progress(WholeShare);
    }
    return tables;
}

QString preparationText(int scriptLineCount) {
    return QStringLiteral("Processing\r\n%1 Line\r\nScript.").arg(formatThousands(scriptLineCount));
}

} // namespace velmora
