#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextDocument>

#include <memory>
#include <vector>

namespace velmora {

[[nodiscard]] QTextBlockFormat toBlockFormat(const ParagraphFormat& format);
[[nodiscard]] ParagraphFormat fromBlockFormat(const QTextBlockFormat& format);

/// Whether a paragraph is read from right to left, as it is laid out: text that is being composed
/// in it counts.
[[nodiscard]] bool isRightToLeft(const QTextBlock& block);

// Positions below are those of the QTextDocument: a line end counts as one. The end format of a
// paragraph is its block's character format, which the document keeps at the separator in front of
// the paragraph; so an edit that joins or cuts paragraphs sets it explicitly.

/// What stands between two positions, begin <= end. A part of a paragraph keeps the paragraph's
/// formats.
[[nodiscard]] RichTextFragment fragmentOf(const QTextDocument& document, int begin, int end);
[[nodiscard]] RichTextFragment fragmentOf(const QTextDocument& document);

/// Replaces what stands between two positions, and returns the position behind what came in.
///
/// The first paragraph keeps its format where text of it stays in front, and takes the fragment's
/// otherwise; the last one likewise with the text that stays behind. An empty fragment deletes: the
/// joined paragraph has the format of the first where text of it stays, else that of the last.
int replaceRange(QTextDocument& document, int begin, int end, const RichTextFragment& fragment);

/// replaceRange with one paragraph after the other, for texts that take long. Nobody may change the
/// document meanwhile, and its layout hears of it at the end.
class RangeReplacement final {
public:
    RangeReplacement(QTextDocument& document, int begin, int end,
                     const std::vector<CharacterFormat>& formats);
    ~RangeReplacement();

    void add(const Paragraph& paragraph);
    /// To be called at the end, however many paragraphs have come.
    int finish();

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// Replaces everything; where the fragment is empty one empty paragraph of emptyFormat is left.
/// Paragraphs that stay the same at the beginning and the end are left as they are, so that they
/// need no layout. Returns whether anything differed.
bool setContents(QTextDocument& document, const RichTextFragment& fragment,
                 const CharacterFormat& emptyFormat);

} // namespace velmora
