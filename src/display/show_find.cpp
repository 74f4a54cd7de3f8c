#include "display/show_find.h"

#include "core/session.h"
#include "display/show_navigation.h"
#include "editor/show_find_window.h"

namespace velmora {

ShowFind::ShowFind(Session& session, ShowNavigation& navigation)
    : m_session(session), m_navigation(navigation) {}

void ShowFind::find(QWidget* window) {
    FindState& find = m_session.find;
    const std::int64_t rowBefore = m_session.show.ScrollRow;
    const int directionBefore = m_session.show.ScrollDirection;
    bool anyHit = false;
    Form14 dialog(m_session, window);
    const ShowState& show = m_session.show;
    for (dialog.ask(); !find.FindText.isEmpty() && show.ExitRequested == 0; dialog.ask()) {
        find.LastFindText = find.FindText;
        if (step(find.FindDirection)) {
            anyHit = true;
        } else {
            dialog.showNoMatch();
        }
    }
    if (!anyHit) {
        m_navigation.restore(rowBefore, directionBefore);
    }
}

void ShowFind::findNext() {
    step(1);
}

/// The last hit, where the search goes on behind it.
std::optional<int> ShowFind::standingHit() const {
    const bool stands = m_hit >= 0 && m_hitText == m_session.find.LastFindText &&
                        m_hitTopRow == m_navigation.topRow();
    return stands ? std::optional(m_hit) : std::nullopt;
}

/// The next hit behind the start, or the last one before it; the text goes there.
bool ShowFind::step(int direction) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    const QString& text = m_session.find.LastFindText;
    const std::optional<int> last = standingHit();
    const int from = last.value_or(rtb1.lineIndex(m_navigation.currentLine()));
    int hit = -1;
    if (direction > 0) {
        hit = rtb1.Find(text, last ? from + 1 : from);
    } else if (from > 0) {
        hit = static_cast<int>(rtb1.Text().lastIndexOf(text, from - 1, Qt::CaseInsensitive));
    }
    if (hit < 0) {
        return false;
    }
    m_navigation.jumpTo(std::min(rtb1.GetLineFromChar(hit), m_navigation.lineCount()));
    m_hitText = text;
    m_hit = hit;
    m_hitTopRow = m_navigation.topRow();
    return true;
}

} // namespace velmora
