#include "display/scan_table.h"

#include <algorithm>

namespace velmora {

ScanTable::ScanTable(const std::vector<int>& lineHeights, std::int64_t leadInRows) {
    m_firstRow.clear();
    m_firstRow.reserve(lineHeights.size() + 1);
    auto row = static_cast<std::int32_t>(leadInRows);
    m_firstRow.push_back(row);
    for (const int height : lineHeights) {
        row += std::max(0, height);
        m_firstRow.push_back(row);
    }
}

ScanRow ScanTable::at(std::int64_t row) const {
    if (row < 0 || row >= rowCount()) {
        return {};
    }
    const std::int32_t first = m_firstRow.front();
    if (row < first) {
        return {-1, first, static_cast<int>(row)};
    }
    const auto holds = [&](std::size_t line) {
        return line + 1 < m_firstRow.size() && m_firstRow[line] <= row &&
               row < m_firstRow[line + 1];
    };
    if (!holds(m_cursor)) {
        if (holds(m_cursor + 1)) {
            ++m_cursor;
        } else if (m_cursor > 0 && holds(m_cursor - 1)) {
            --m_cursor;
        } else {
            const auto next = std::upper_bound(m_firstRow.begin(), m_firstRow.end(), row);
            m_cursor = static_cast<std::size_t>(next - m_firstRow.begin()) - 1;
        }
    }
    const std::int32_t start = m_firstRow[m_cursor];
    return {static_cast<int>(m_cursor) + 1, m_firstRow[m_cursor + 1] - start,
            static_cast<int>(row - start)};
}

std::int64_t ScanTable::firstRowOfLine(int line) const {
    const int limited = std::clamp(line, 0, lineCount());
    return m_firstRow[static_cast<std::size_t>(limited)];
}

} // namespace velmora
