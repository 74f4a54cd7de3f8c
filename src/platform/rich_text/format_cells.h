#pragma once

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace velmora {

/// A stretch of a QTextDocument, begin <= end, in its own positions.
struct DocumentRange final {
    int begin = 0;
    int end = 0;

    [[nodiscard]] bool isEmpty() const { return begin == end; }
    bool operator==(const DocumentRange&) const = default;
};

/// Something in a document that has one character format: a stretch of characters, or the end of a
/// paragraph, whose format the document keeps at the separator in front of the paragraph (position
/// -1 for the first one).
struct FormatCell final {
    int position = 0;
    int length = 0;
    /// Index into QTextDocument::allFormats().
    int formatIndex = 0;
    bool isEnd = false;
    /// The end of an empty paragraph is all there is to see of its format.
    bool ofEmptyParagraph = false;
};

/// The end of a paragraph belongs to a range that goes beyond it, and the document's last one to a
/// range that holds the whole paragraph.
[[nodiscard]] inline bool holdsEnd(DocumentRange range, const QTextBlock& block) {
    const int end = block.position() + block.length() - 1;
    return block.next().isValid() ? range.begin <= end && range.end > end
                                  : range.begin <= block.position() && range.end >= end;
}

/// Calls visit(cell) for every cell of a range, in ascending positions, until it returns false.
template<typename Visitor>
void visitCells(const QTextDocument& document, DocumentRange range, const Visitor& visit) {
    for (QTextBlock block = document.findBlock(range.begin);
         block.isValid() && block.position() <= range.end; block = block.next()) {
        const int start = block.position();
        if (holdsEnd(range, block) &&
            !visit(FormatCell{start - 1, 1, block.charFormatIndex(), true, block.length() == 1})) {
            return;
        }
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment run = part.fragment();
            const int begin = std::max(run.position(), range.begin);
            const int end = std::min(run.position() + run.length(), range.end);
            if (begin < end &&
                !visit(FormatCell{begin, end - begin, run.charFormatIndex(), false, false})) {
                return;
            }
        }
    }
}

} // namespace velmora
