#include "display/show_navigation.h"

#include "controllers/shuttle_wheel.h"
#include "core/session.h"
#include "display/show_screen.h"
#include "platform/timing/clock.h"
#include "platform/timing/presenter.h"

#include <algorithm>
#include <utility>

namespace velmora {

ShowNavigation::ShowNavigation(const Parts& parts)
    : m_session(parts.session), m_parts(parts),
      m_bookmarks(parts.tables.BookmarkLines, parts.tables.SelectiveBookmarkLines) {}

std::int64_t ShowNavigation::topRow() const {
    const ShowState& show = m_session.show;
    return show.ScrollDirection > 0 ? show.ScrollRow - (m_parts.textRows - 1) : show.ScrollRow;
}

int ShowNavigation::topLine() const {
    return m_parts.tables.scanTable.at(std::max<std::int64_t>(0, topRow())).line;
}

double ShowNavigation::returnLine() const {
    if (m_session.show.ScrollDirection > 0 && m_session.show.ReachedEnd == 1) {
        return 0;
    }
    return std::clamp(topLine(), 0, lineCount());
}

ShowNavigation::RowsOfLine ShowNavigation::rowsOfLine(int line) const {
    const ScanTable& table = m_parts.tables.scanTable;
    const std::int64_t first = table.firstRowOfLine(line);
    return {static_cast<int>(first - topRow()),
            static_cast<int>(table.firstRowOfLine(line + 1) - first)};
}

int ShowNavigation::lineCount() const {
    return static_cast<int>(m_parts.tables.lineTable.size());
}

ShowNavigation::Advance ShowNavigation::advance() {
    ShowState& show = m_session.show;
    show.ScrollRow += show.SignedRowStep;
    const bool atEnd = show.ScrollDirection > 0
                           ? m_parts.tables.scanTable.at(show.ScrollRow).line == 0
                           : show.ScrollRow <= 0;
    if (!atEnd) {
        return Advance::Taken;
    }
    if (show.ScrollRow > 0 && show.ScrollRow < m_parts.tables.LastScrollRow) {
        return Advance::Skipped;
    }
    show.ScrollRow -= show.SignedRowStep;
    return Advance::Limit;
}

double ShowNavigation::startLine() const {
    const ShowState& show = m_session.show;
    return show.StartFromCursor == 0 ? 0 : std::min<double>(show.StartPosition, lineCount());
}

void ShowNavigation::showStart(double startLine) {
    if (startLine > 0) {
        const auto line = static_cast<int>(startLine);
        m_parts.screen.setScrollValue(line);
        reposition(line);
        return;
    }
    ShowState& show = m_session.show;
    m_parts.screen.setScrollValue(0);
    show.ScrollRow = m_parts.textRows - 1;
    m_parts.composer.showTop(0);
    if (m_parts.tables.scanTable.at(show.ScrollRow).line == 0) {
        noteReachedEnd();
    }
}

void ShowNavigation::noteReachedEnd() {
    m_session.show.ReachedEnd = 1;
    m_session.show.ElapsedStart = m_session.platform.clock.Timer();
}

void ShowNavigation::reposition(int line) {
    ShowState& show = m_session.show;
    const ShowTables& tables = m_parts.tables;
    const int textRows = m_parts.textRows;
    std::int64_t top = tables.scanTable.firstRowOfLine(line);
    top = std::min(top, tables.LastScrollRow - textRows);
    top = std::max<std::int64_t>(top, 0);
    if (top == 0 && tables.scanTable.at(textRows - 1).line == 0) {
        noteReachedEnd();
    }
    show.ScrollRow = show.ScrollDirection > 0 ? top + textRows - 1 : top;
    m_parts.composer.showTop(top);
    ++m_repositions;
}

void ShowNavigation::jumpTo(int line) {
    m_parts.screen.setScrollValue(line);
    reposition(line);
    m_parts.presenter.presentNow();
}

int ShowNavigation::currentLine() const {
    return std::clamp(topLine() - 1, 0, lineCount());
}

int ShowNavigation::takeTopLine() {
    const int line = currentLine();
    m_parts.screen.setScrollValue(line);
    return line;
}

void ShowNavigation::stepLines(int lines) {
    if (const auto target = shuttleRingTarget(lines, takeTopLine(), lineCount())) {
        jumpTo(*target);
    }
}

void ShowNavigation::jumpToSelectiveBookmark(int digit) {
    if (const auto line = m_bookmarks.selective(digit)) {
        jumpTo(*line);
    }
}

void ShowNavigation::serveBookmarkJump() {
    ShowState& show = m_session.show;
    const int request = std::exchange(show.BookmarkJump, bookmark_jump::None);
    if (request == bookmark_jump::None || m_bookmarks.empty()) {
        return;
    }
    const int top = takeTopLine();
    const bool forward = request == bookmark_jump::Next;
    const auto target = forward ? m_bookmarks.next(top, show.ScrollDirection)
                                : m_bookmarks.previous(top, show.ScrollDirection);
    if (target) {
        jumpTo(*target);
    } else if (!forward) {
        jumpTo(0);
    }
}

void ShowNavigation::restore(std::int64_t scrollRow, int scrollDirection) {
    ShowState& show = m_session.show;
    show.ScrollRow = scrollRow;
    show.ScrollDirection = scrollDirection;
    show.SignedRowStep = scrollDirection * m_session.settings.RowStep;
    m_parts.composer.showTop(topRow());
    m_parts.presenter.presentNow();
}

} // namespace velmora
