#include "display/scan_table.h"

#include <gtest/gtest.h>

#include <random>

using namespace velmora;

namespace {

/// The table as one entry for each pixel row.
std::vector<ScanRow> expand(const std::vector<int>& heights, int leadIn) {
    std::vector<ScanRow> rows;
    for (int row = 0; row < leadIn; ++row) {
        rows.push_back({-1, leadIn, row});
    }
    for (std::size_t line = 0; line < heights.size(); ++line) {
        for (int row = 0; row < heights[line]; ++row) {
            rows.push_back({static_cast<int>(line) + 1, heights[line], row});
        }
    }
    return rows;
}

void expectEqual(const ScanRow& actual, const ScanRow& expected, std::int64_t row) {
    EXPECT_EQ(actual.line, expected.line) << row;
    EXPECT_EQ(actual.height, expected.height) << row;
    EXPECT_EQ(actual.rowInLine, expected.rowInLine) << row;
}

} // namespace

TEST(ScanTable, AnswersEveryRowAsTheExpandedTableDoes) {
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        std::vector<int> heights(random() % 40);
        for (int& height : heights) {
            height = random() % 4 == 0 ? 0 : static_cast<int>(random() % 60);
        }
        const int leadIn = round % 3 == 0 ? static_cast<int>(random() % 100) : 0;
        const ScanTable table(heights, leadIn);
        const std::vector<ScanRow> rows = expand(heights, leadIn);
        const auto count = static_cast<std::int64_t>(rows.size());
        ASSERT_EQ(table.rowCount(), count);
        for (std::int64_t row = 0; row < count; ++row) {
            expectEqual(table.at(row), rows[static_cast<std::size_t>(row)], row);
        }
        for (std::int64_t row = count - 1; row >= 0; --row) {
            expectEqual(table.at(row), rows[static_cast<std::size_t>(row)], row);
        }
        for (int jump = 0; jump < 100 && count > 0; ++jump) {
            const auto row = static_cast<std::int64_t>(random() % rows.size());
            expectEqual(table.at(row), rows[static_cast<std::size_t>(row)], row);
        }
        for (const std::int64_t outside : {std::int64_t{-1}, count, count + 100000}) {
            EXPECT_EQ(table.at(outside).line, 0);
        }
    }
}

TEST(ScanTable, FindsTheFirstRowOfALineAndSkipsLinesWithoutRows) {
    const ScanTable table({10, 0, 0, 7}, 5);
    EXPECT_EQ(table.firstRowOfLine(0), 5);
    EXPECT_EQ(table.firstRowOfLine(1), 15);
    EXPECT_EQ(table.firstRowOfLine(3), 15);
    EXPECT_EQ(table.firstRowOfLine(4), 22);
    EXPECT_EQ(table.firstRowOfLine(400), 22);
    EXPECT_EQ(table.firstRowOfLine(-3), 5);
}
