#pragma once

#include "platform/drawing/print_box.h"

#include <QList>
#include <QPointF>
#include <QRawFont>

#include <cstddef>
#include <cstdint>
#include <vector>

class QTextLine;

namespace velmora {

/// Glyphs of one font and one format, next to each other on the line.
struct GlyphStretch final {
    /// At its size in reference units.
    QRawFont font;
    /// The font that the format asks for, which may lack these glyphs: strokes through and below
    /// the text follow it, so that they do not jump. Only where there are strokes.
    QRawFont strokeFont;
    QList<std::uint32_t> glyphs;
    /// x from the line's left edge, y from the baseline, downwards.
    QList<QPointF> positions;
    /// x of the stretch's cells; a tab has cells and no glyph.
    double left = 0;
    double right = 0;
    /// Index into the runs from which the line was shaped.
    std::size_t run = 0;
};

/// A line of text with its glyphs in place, left to right, in reference units of 1/8 point.
struct LineShape final {
    std::vector<GlyphStretch> stretches;
    /// Where the text begins and ends, trailing blanks left out; equal where there are only blanks.
    double textLeft = 0;
    double textRight = 0;
    /// Of the highest font.
    double ascent = 0;
    double capHeight = 0;
    /// Ascent and descent of the highest letters; without leading, the first to go in a row that
    /// is lower than the line.
    double height = 0;
};

/// Shapes a line without its markers "^" and "~" and without line ends. No text: no stretches.
/// Blanks at its end have no stretches where they reach beyond their room, in reference units.
///
/// The line is all there is: where it is a part of a paragraph with text that runs from right to
/// left, its order is another one than in the paragraph.
[[nodiscard]] LineShape shapeLine(const std::vector<StyledText>& runs, bool rightToLeft,
                                  double roomForBlanks);

/// The same for a line of a laid out paragraph, in the order that it has there. The runs are the
/// whole line's, from its first character on. Where a marker is left out the line closes up.
[[nodiscard]] LineShape shapeLineOfParagraph(const std::vector<StyledText>& runs,
                                             const QTextLine& line);

} // namespace velmora
