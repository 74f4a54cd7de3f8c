#include "display/show_bookmarks.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

constexpr int Margin = 2;
constexpr int FirstDigit = 2;
constexpr int LastDigit = 9;

/// CurrentLine: one line towards where the text comes from.
int findline(int topLine, int scrollDirection) {
    return scrollDirection > 0 ? topLine - 1 : topLine + 1;
}

} // namespace

ShowBookmarks::ShowBookmarks(std::vector<int> lines, std::vector<std::optional<int>> selective)
    : BookmarkLines(std::move(lines)), SelectiveBookmarkLines(std::move(selective)) {
    BookmarkLines.resize(std::min<std::size_t>(BookmarkLines.size(), MostLines));
}

std::optional<int> ShowBookmarks::next(int topLine, int scrollDirection) const {
    const auto at =
        std::ranges::lower_bound(BookmarkLines, findline(topLine, scrollDirection) + Margin);
    return at == BookmarkLines.end() ? std::nullopt : std::optional(*at);
}

std::optional<int> ShowBookmarks::previous(int topLine, int scrollDirection) const {
    const auto behind =
        std::ranges::upper_bound(BookmarkLines, findline(topLine, scrollDirection) - Margin);
    return behind == BookmarkLines.begin() ? std::nullopt : std::optional(*std::prev(behind));
}

std::optional<int> ShowBookmarks::selective(int digit) const {
    const auto slot = static_cast<std::size_t>(digit - 1);
    if (digit < FirstDigit || digit > LastDigit || slot >= SelectiveBookmarkLines.size()) {
        return std::nullopt;
    }
    return SelectiveBookmarkLines[slot];
}

bool ShowBookmarks::add(int line) {
    const auto at = std::ranges::lower_bound(BookmarkLines, line);
    const bool taken = at != BookmarkLines.end() && *at == line;
    if (taken || BookmarkLines.size() >= MostLinesForAdding ||
        InsertedBookmarks.size() >= MostInserted) {
        return false;
    }
    BookmarkLines.insert(at, line);
    InsertedBookmarks.push_back(line);
    return true;
}

} // namespace velmora
