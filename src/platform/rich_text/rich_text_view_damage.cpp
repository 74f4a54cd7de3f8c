#include "platform/rich_text/rich_text_view_damage.h"

#include "platform/rich_text/rich_text_view_geometry.h"

#include <algorithm>

namespace velmora {

namespace {

/// Ink that reaches out of its line a little: slanted glyphs, accents, antialiasing.
constexpr int OverhangPixels = 2;

QRect withOverhang(const QRect& rect) {
    return rect.adjusted(0, -OverhangPixels, 0, OverhangPixels);
}

} // namespace

std::vector<DamageTracker::ShownLine> DamageTracker::visibleLines() const {
    std::vector<ShownLine> lines;
    const int height = m_geometry.viewportSize().height();
    for (LinePlace place = m_geometry.lineAt(0); place.isValid();
         place = m_geometry.nextLine(place)) {
        const QRect rect = m_geometry.lineRect(place);
        if (rect.top() >= height) {
            break;
        }
        lines.push_back(
            {place.start(), place.line.textLength(), rect, place.line.naturalTextRect().left()});
    }
    return lines;
}

void DamageTracker::rememberLines() {
    m_shown = visibleLines();
    m_change.reset();
}

void DamageTracker::noteChange(const TextChange& change) {
    m_change = m_change ? m_change->followedBy(change) : change;
}

bool DamageTracker::isUnchanged(const ShownLine& line, const TextChange& change) const {
    const bool before = line.start + line.length < change.from;
    const bool behind = line.start > change.newEnd;
    if (!before && !behind) {
        return false;
    }
    const int oldStart = before ? line.start : line.start + change.oldEnd - change.newEnd;
    return std::any_of(m_shown.cbegin(), m_shown.cend(), [&](const ShownLine& shown) {
        return shown.start == oldStart && shown.length == line.length && shown.rect == line.rect &&
               qFuzzyCompare(shown.left + 1, line.left + 1);
    });
}

QRegion DamageTracker::changedLines() const {
    QRegion region;
    int end = 0;
    const TextChange change = m_change.value_or(TextChange());
    for (const ShownLine& line : visibleLines()) {
        end = line.rect.bottom() + 1;
        if (!m_change || !isUnchanged(line, change)) {
            region += withOverhang(line.rect);
        }
    }
    const int oldEnd = m_shown.empty() ? 0 : m_shown.back().rect.bottom() + 1;
    if (end < oldEnd) {
        region += withOverhang({0, end, m_geometry.viewportSize().width(), oldEnd - end});
    }
    return region;
}

QRegion DamageTracker::linesTouching(int start, int end) const {
    QRegion region;
    for (const ShownLine& line : m_shown) {
        if (line.start <= end && start <= line.start + line.length) {
            region += withOverhang(line.rect);
        }
    }
    return region;
}

} // namespace velmora
