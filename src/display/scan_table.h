#pragma once

#include <cstdint>
#include <vector>

namespace velmora {

/// Where a line of the script lies in its text.
struct LineEntry final {
    /// Position of the line's first character in rtb1.
    std::int32_t index = 0;
    /// Characters, without the line end.
    std::int32_t length = 0;
};

/// Per display line of the script its place in the text; line 0 first.
using LineTable = std::vector<LineEntry>;

/// What a pixel row of the whole script shows.
struct ScanRow final {
    /// 1-based line; 0 past the last row of the text, -1 in the lead-in, both of which are blank.
    int line = 0;
    /// Height of that line in rows (the lead-in's whole height for a lead-in row).
    int height = 0;
    /// Row within the line, from 0.
    int rowInLine = 0;
};

/// One entry for each pixel row of the script, answered from a sum per line instead of being
/// stored: 4 bytes a line in place of 12 bytes a row. Immutable but for a cursor that makes the
/// look-up of a neighbouring row cheap.
class ScanTable final {
public:
    ScanTable() = default;
    /// lineHeights: rows of each line, 0 or more. leadInRows: blank rows in front of the first
    /// line.
    explicit ScanTable(const std::vector<int>& lineHeights, std::int64_t leadInRows = 0);

    /// Any row may be asked for: those before 0 and past the text have line 0.
    [[nodiscard]] ScanRow at(std::int64_t row) const;
    /// ScanRowCount: rows filled, the lead-in included.
    [[nodiscard]] std::int64_t rowCount() const { return m_firstRow.back(); }
    [[nodiscard]] int lineCount() const { return static_cast<int>(m_firstRow.size()) - 1; }
    /// First row of the first line at or behind a 0-based line that has rows; rowCount() past the
    /// last.
    [[nodiscard]] std::int64_t firstRowOfLine(int line) const;
    /// Memory held, in bytes.
    [[nodiscard]] std::size_t bytes() const { return m_firstRow.capacity() * sizeof(std::int32_t); }

private:
    /// First row of each line, and the row behind the last.
    std::vector<std::int32_t> m_firstRow = {0};
    /// Line of the last look-up.
    mutable std::size_t m_cursor = 0;
};

} // namespace velmora
