#pragma once

#include <optional>
#include <vector>

namespace velmora {

/// The bookmarks of a running show: those of the script and those that the operator adds, which are
/// live at once and go into the script when the show is over. Lines are 0-based.
class ShowBookmarks final {
public:
    /// Most lines with a bookmark, and most that one show can add.
    static constexpr int MostLines = 1001;
    static constexpr int MostLinesForAdding = 998;
    static constexpr int MostInserted = 400;

    ShowBookmarks() = default;
    /// lines: ascending; those beyond MostLines are left out. selective: the lines of the keys 2 to
    /// 9 in slots 1 to 8.
    ShowBookmarks(std::vector<int> lines, std::vector<std::optional<int>> selective);

    /// The bookmark that a jump from the line at the window's top goes to, if there is one. The
    /// margin of the reading direction keeps a jump from the bookmark that the text stands on.
    [[nodiscard]] std::optional<int> next(int topLine, int scrollDirection) const;
    [[nodiscard]] std::optional<int> previous(int topLine, int scrollDirection) const;
    /// The line of a digit key, 2 to 9.
    [[nodiscard]] std::optional<int> selective(int digit) const;
    [[nodiscard]] bool empty() const { return BookmarkLines.empty(); }

    /// False where the line has a bookmark, or no more can be taken.
    bool add(int line);

    [[nodiscard]] const std::vector<int>& inserted() const { return InsertedBookmarks; }

private:
    std::vector<int> BookmarkLines;
    std::vector<std::optional<int>> SelectiveBookmarkLines;
    /// In the order in which they were added.
    std::vector<int> InsertedBookmarks;
};

} // namespace velmora
