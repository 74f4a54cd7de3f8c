#pragma once

class QPainter;

namespace velmora {

/// Height of the strip that the cue arrow needs below its top.
inline constexpr int CueArrowHeight = 74;

/// Draws the cue arrow: an arrow head 37 wide and 73 high with its point at the right, five nested
/// triangles shaded in grey and white. top is ArrowPosition, in pixels of the strip.
void drawCueArrow(QPainter& painter, int top);

} // namespace velmora
