#pragma once

#include "platform/drawing/text_format.h"

#include <QString>

#include <vector>

namespace velmora {

/// Which way a paragraph is read.
enum class Direction {
    /// As its first strong letter is; from left to right without one.
    FromText,
    LeftToRight,
    RightToLeft,
};

/// The format of a paragraph. Offsets are in twips (1/20 point).
struct ParagraphFormat final {
    Alignment alignment = Alignment::Left;
    Direction direction = Direction::FromText;
    int leftOffsetTwips = 0;
    /// Of the first line, relative to leftOffsetTwips; negative hangs it out.
    int firstLineOffsetTwips = 0;

    bool operator==(const ParagraphFormat&) const = default;
};

/// A stretch of one paragraph's text in one format.
struct TextRun final {
    /// In UTF-16 units, above 0.
    int length = 0;
    /// Index into RichTextFragment::formats.
    int format = 0;

    bool operator==(const TextRun&) const = default;
};

/// One paragraph without its end. U+2028 in the text is a line end inside the paragraph (\line).
struct Paragraph final {
    QString text;
    /// Covers the text without a gap: the lengths add up to text.size(). Empty for an empty
    /// paragraph.
    std::vector<TextRun> runs;
    /// Format of the paragraph's end, which gives an empty paragraph its height. Index into
    /// formats.
    int endFormat = 0;
    ParagraphFormat format;

    bool operator==(const Paragraph&) const = default;
};

/// Rich text as a plain value: what the RTF reader delivers, the RTF writer takes, and a
/// RichTextBox gives and accepts. Between two paragraphs stands one line end; so N line ends make N
/// + 1 paragraphs. A fragment without paragraphs is empty; one with a single paragraph inserts no
/// line end.
struct RichTextFragment final {
    std::vector<CharacterFormat> formats;
    std::vector<Paragraph> paragraphs;
};

} // namespace velmora
