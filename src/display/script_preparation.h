#pragma once

#include "display/scan_table.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace velmora {

class RichTextBox;

/// The tables of one show: everything that the scroll loop needs, so that a step costs a look-up
/// and no call into the rich text control. Made by prepareScript, owned by the display window.
struct ShowTables final {
    LineTable lineTable;
    ScanTable scanTable;
    /// Height of the whole script in pixel rows of the display.
    std::int64_t ScriptPixelHeight = 0;
    /// Highest scroll position: the last row of the text.
    std::int64_t LastScrollRow = 0;
    /// Lines that carry a marker, ascending; a line with both kinds stands twice.
    std::vector<int> BookmarkLines;
    /// Lines of the first eight selective bookmarks in slots 1 to 8.
    std::vector<std::optional<int>> SelectiveBookmarkLines;
};

/// Most lines of a script that a show can hold, from the 16-bit scroll bar.
inline constexpr int MaxScriptLines = 32765;

struct PreparationInput final {
    /// Lines of rtb1, at most MaxScriptLines.
    int ScriptLineCount = 0;
    /// Size on the display over size in the editor; the zoom at which rtb1 is measured.
    double FontScale = 1;
    /// Step of the line spacing table, 1 to 36.
    int LineSpacingIndex = 26;
    /// Blank rows in front of the text; only timed shows have some.
    std::int64_t leadInRows = 0;
};

/// Progress of the preparation, 0 to 295. Called at every 250th line; may pump messages.
using PreparationProgress = std::function<void(int)>;

/// Measures every line of rtb1 at the display's zoom, scales by the line spacing, and builds the
/// tables. Leaves rtb1 at zoom FontScale.
[[nodiscard]] ShowTables prepareScript(RichTextBox& rtb1, const PreparationInput& input,
                                       const PreparationProgress& progress);

/// Text of the preparation's window for a script of so many lines, in three rows.
[[nodiscard]] QString preparationText(int scriptLineCount);

} // namespace velmora
