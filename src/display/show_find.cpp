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
    startAtTopLine();
    Form14 dialog(find, window);
    for (dialog.ask(); !find.FindText.isEmpty(); dialog.ask()) {
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
    startAtTopLine();
    step(1);
}

void ShowFind::startAtTopLine() {
    RichTextBox& rtb1 = m_session.script.rtb1;
    rtb1.setSelStart(rtb1.lineIndex(m_navigation.takeTopLine()));
}

/// The next hit behind the caret, or the last one before it; the caret goes there, and the text.
bool ShowFind::step(int direction) {
    RichTextBox& rtb1 = m_session.script.rtb1;
    const QString& text = m_session.find.LastFindText;
    const int from = rtb1.SelStart();
    int hit = -1;
    if (direction > 0) {
        hit = rtb1.Find(text, from + 1);
    } else if (from > 0) {
        hit = static_cast<int>(rtb1.Text().lastIndexOf(text, from - 1, Qt::CaseInsensitive));
    }
    if (hit < 0) {
        rtb1.setSelStart(from);
        return false;
    }
    rtb1.setSelStart(hit);
    m_navigation.jumpTo(std::min(rtb1.GetLineFromChar(hit), m_navigation.lastLine()));
    return true;
}

} // namespace velmora
