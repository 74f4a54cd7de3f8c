#pragma once

#include "platform/drawing/print_box.h"

#include <vector>

namespace velmora {

class GlyphMaskCache;
class Surface;
struct LineShape;

/// Draws one line of text, unwrapped, into the rows 0 to box.rowHeight - 1 of target; nothing is
/// drawn outside these rows or the target.
///
/// The markers "^" and "~" are left out. Trailing blanks do not count for the alignment. Ink that
/// would lie outside left to left + width (an overhanging first or last letter) moves the line
/// inwards by that much, where the line fits at all. The target keeps its picture where there is
/// neither ink nor a text background.
void printLine(Surface& target, const std::vector<StyledText>& runs, const PrintBox& box,
               GlyphMaskCache& cache);

/// The same with the line shaped already, from these runs.
void printLine(Surface& target, const LineShape& shape, const std::vector<StyledText>& runs,
               const PrintBox& box, GlyphMaskCache& cache);

} // namespace velmora
