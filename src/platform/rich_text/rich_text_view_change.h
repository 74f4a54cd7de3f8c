#pragma once

#include <algorithm>

namespace velmora {

/// A stretch of the text that changed: from its start to its end, before and after. Positions are
/// those of the QTextDocument.
struct TextChange final {
    int from = 0;
    int oldEnd = 0;
    int newEnd = 0;

    /// Removed characters that gave way to added ones, or to the same ones in another format.
    static TextChange of(int from, int removed, int added) {
        return {from, from + removed, from + added};
    }

    /// Both changes as one; the later one counts in the text that this one made.
    [[nodiscard]] TextChange followedBy(const TextChange& later) const {
        const int betweenEnd = std::max(newEnd, later.oldEnd);
        return {std::min(from, later.from), oldEnd + betweenEnd - newEnd,
                betweenEnd - later.oldEnd + later.newEnd};
    }
};

} // namespace velmora
