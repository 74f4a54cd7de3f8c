#pragma once

#include "platform/rich_text/rich_text_fragment.h"

namespace velmora {

/// Paragraphs so long that a key in them makes the editor wait: a paragraph is laid out as a whole
/// whenever it changes. No script has any; some files are one line of megabytes.
namespace long_paragraphs {

/// Of a longer paragraph a key costs more than a tenth of a second.
inline constexpr int MaxUnits = 100'000;
inline constexpr int MaxRuns = 4'000;
/// Marks upon one character.
inline constexpr int MaxMarks = 1'000;

/// Length of the longest paragraph that is too long, in UTF-16 units; 0 where there is none.
[[nodiscard]] int longestOf(const RichTextFragment& text);

/// Breaks them into several of at most these lengths: at a line end inside of the paragraph, which
/// becomes the break, else behind a blank, else where a line may break or at least a character
/// ends. Nothing but the breaks comes in, and nothing else goes.
void breakUp(RichTextFragment& text);

inline constexpr int UnitsOfAPiece = 20'000;
inline constexpr int RunsOfAPiece = 1'000;
inline constexpr int MarksOfAPiece = 200;

} // namespace long_paragraphs

} // namespace velmora
