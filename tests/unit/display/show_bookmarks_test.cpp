#include "display/show_bookmarks.h"

#include <gtest/gtest.h>

using namespace velmora;

TEST(ShowBookmarks, JumpsLeaveTheBookmarkThatTheTextStandsOn) {
    const ShowBookmarks bookmarks({4, 10, 11, 30}, {});
    struct Row {
        int top;
        int direction;
        std::optional<int> next;
        std::optional<int> previous;
    };
    for (const Row& row : {Row{0, 1, 4, std::nullopt}, Row{4, 1, 10, std::nullopt},
                           Row{7, 1, 10, 4}, Row{10, 1, 11, 4}, Row{13, 1, 30, 10},
                           Row{30, 1, std::nullopt, 11}, Row{4, -1, 10, std::nullopt},
                           Row{5, -1, 10, 4}, Row{8, -1, 11, 4}, Row{28, -1, std::nullopt, 11}}) {
        SCOPED_TRACE(testing::Message() << row.top << " going " << row.direction);
        EXPECT_EQ(bookmarks.next(row.top, row.direction), row.next);
        EXPECT_EQ(bookmarks.previous(row.top, row.direction), row.previous);
    }
}

TEST(ShowBookmarks, AddedOnesAreLiveInOrderAndBounded) {
    ShowBookmarks bookmarks({10}, {std::nullopt, 0, 7, std::nullopt});
    EXPECT_EQ(bookmarks.selective(2), 0) << "the first line is one like any other";
    EXPECT_EQ(bookmarks.selective(3), 7);
    EXPECT_EQ(bookmarks.selective(4), std::nullopt);
    EXPECT_EQ(bookmarks.selective(9), std::nullopt);
    EXPECT_TRUE(bookmarks.add(20));
    EXPECT_TRUE(bookmarks.add(3));
    EXPECT_FALSE(bookmarks.add(20)) << "a line holds one";
    EXPECT_EQ(bookmarks.next(0, 1), 3);
    EXPECT_EQ(bookmarks.inserted(), (std::vector<int>{20, 3}));
    for (int line = 100; line < 1100; ++line) {
        bookmarks.add(line);
    }
    EXPECT_EQ(bookmarks.inserted().size(), 400u);

    std::vector<int> many(3000);
    for (int line = 0; line < 3000; ++line) {
        many[static_cast<std::size_t>(line)] = line;
    }
    ShowBookmarks full(many, {});
    EXPECT_EQ(full.next(1000, 1), std::nullopt) << "entry 1,001 is the last";
    EXPECT_FALSE(full.add(2000));
}
