#include "display/script_preparation.h"

#include "platform/rich_text/rich_text_box.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora;

namespace {

class ScriptPreparation : public ::testing::Test {
protected:
    void setText(const QString& text) {
        box.setDefaultFormat({u"Liberation Sans"_qs, 52});
        box.setWrapWidth(298);
        box.setText(text);
    }
    [[nodiscard]] ShowTables prepare(int lineSpacingIndex = 26, double scale = 2) {
        return prepareScript(box, {box.lineCount(), scale, lineSpacingIndex, 0}, {});
    }

    RichTextBox box;
};

} // namespace

TEST_F(ScriptPreparation, EveryLineHasTheRowsBetweenItAndTheNext) {
    setText(u"one\r\ntwo\r\n\r\nfour"_qs);
    const ShowTables tables = prepare();
    ASSERT_EQ(tables.lineTable.size(), 4u);
    EXPECT_EQ(tables.lineTable[3].index, 12);
    EXPECT_EQ(tables.lineTable[3].length, 4);
    for (int line = 0; line < 3; ++line) {
        const int distance = box.verticalPosition(tables.lineTable[std::size_t(line) + 1].index) -
                             box.verticalPosition(tables.lineTable[std::size_t(line)].index);
        EXPECT_EQ(tables.scanTable.firstRowOfLine(line + 1) - tables.scanTable.firstRowOfLine(line),
                  distance);
    }
    EXPECT_EQ(tables.LastScrollRow, tables.ScriptPixelHeight - 1);
    EXPECT_NEAR(static_cast<double>(tables.scanTable.rowCount()),
                static_cast<double>(tables.ScriptPixelHeight), 1);
}

TEST_F(ScriptPreparation, LastLineIsAsHighAsItsTallestFont) {
    for (const char* last : {"", "x"}) {
        SCOPED_TRACE(last);
        setText(u"one\r\n"_qs + QLatin1String(last));
        const ShowTables tables = prepare();
        // As high as the line of the same font before it, whose height the distance tells.
        EXPECT_NEAR(tables.scanTable.at(tables.LastScrollRow).height, tables.scanTable.at(0).height,
                    1);
        EXPECT_EQ(tables.scanTable.at(tables.LastScrollRow).line, 2);
    }
}

TEST_F(ScriptPreparation, SpacingStretchesAndShrinksTheRows) {
    setText(u"a\r\nb\r\nc\r\nd\r\ne"_qs);
    const auto rows = [this](int index) {
        return static_cast<double>(prepare(index).scanTable.firstRowOfLine(4));
    };
    const double plain = rows(26);
    EXPECT_NEAR(rows(36) / plain, 1.6, 0.02);
    EXPECT_NEAR(rows(31) / plain, 1.3, 0.02);
    EXPECT_NEAR(rows(1) / plain, 0.75, 0.02);
}

TEST_F(ScriptPreparation, BookmarksAreSortedLinesAndTheFirstEightSelectiveOnesHaveSlots) {
    QString text = u"~^a ^b\r\n~c ^d\r\nplain words that are wrapped ^here\r\n"_qs;
    for (int i = 0; i < 9; ++i) {
        text += u"~x\r\n"_qs;
    }
    setText(text);
    const ShowTables tables = prepare();
    const int wrapped = box.GetLineFromChar(static_cast<int>(text.indexOf(u"here"_qs)));
    ASSERT_GT(wrapped, 2);
    // Once for two like marks of a line, twice for two kinds.
    const std::vector<int> first(tables.BookmarkLines.begin(), tables.BookmarkLines.begin() + 5);
    EXPECT_EQ(first, (std::vector<int>{0, 0, 1, 1, wrapped}));
    EXPECT_EQ(tables.BookmarkLines.size(), 14u);
    EXPECT_TRUE(std::is_sorted(tables.BookmarkLines.begin(), tables.BookmarkLines.end()));
    EXPECT_EQ(tables.SelectiveBookmarkLines[1], 0);
    EXPECT_EQ(tables.SelectiveBookmarkLines[2], 1);
    EXPECT_EQ(tables.SelectiveBookmarkLines[8], wrapped + 6) << "behind the wrapped line";
    EXPECT_EQ(tables.SelectiveBookmarkLines[9], std::nullopt);

    setText(u"no marks"_qs);
    EXPECT_TRUE(prepare().BookmarkLines.empty());
}
