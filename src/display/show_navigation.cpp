#include "display/show_navigation.h"

#include "core/session.h"
#include "platform/timing/clock.h"

#include <algorithm>

namespace velmora {

ShowNavigation::ShowNavigation(Session& session, const ShowTables& tables, FrameComposer& composer,
                               int textRows)
    : m_session(session), m_tables(tables), m_composer(composer), m_textRows(textRows) {}

std::int64_t ShowNavigation::topRow() const {
    const ShowState& show = m_session.show;
    return show.ScrollDirection > 0 ? show.ScrollRow - (m_textRows - 1) : show.ScrollRow;
}

int ShowNavigation::topLine() const {
    return m_tables.scanTable.at(std::max<std::int64_t>(0, topRow())).line;
}

double ShowNavigation::returnLine() const {
    if (m_session.show.ScrollDirection > 0 && m_session.show.ReachedEnd == 1) {
        return 0;
    }
    return std::clamp(topLine(), 0, static_cast<int>(m_tables.lineTable.size()));
}

void ShowNavigation::reposition(int line) {
    ShowState& show = m_session.show;
    std::int64_t top = m_tables.scanTable.firstRowOfLine(line);
    top = std::min(top, m_tables.LastScrollRow - m_textRows);
    top = std::max<std::int64_t>(top, 0);
    if (top == 0 && m_tables.scanTable.at(m_textRows - 1).line == 0) {
        show.ReachedEnd = 1;
        show.ElapsedStart = m_session.platform.clock.Timer();
    }
    show.ScrollRow = show.ScrollDirection > 0 ? top + m_textRows - 1 : top;
    m_composer.showTop(top);
    ++m_repositions;
}

} // namespace velmora
