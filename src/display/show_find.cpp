#include "display/show_find.h"

#include "core/session.h"
#include "display/show_find_window.h"
#include "display/show_navigation.h"
#include "display/text_window.h"

namespace velmora {

namespace {

/// What the desktop may add to a window's height. It tells some time after the window is shown, so
/// that a window seems to have moved by as much.
constexpr int FrameHeight = 40;

} // namespace

ShowFind::ShowFind(Session& session, ShowNavigation& navigation)
    : m_session(session), m_navigation(navigation) {}

void ShowFind::find(const TextWindow& picture, Orientation face) {
    FindState& find = m_session.find;
    const std::int64_t rowBefore = m_session.show.ScrollRow;
    const int directionBefore = m_session.show.ScrollDirection;
    bool anyHit = false;
    Form14 dialog(m_session, face, picture.window());
    dialog.adjustSize();
    const ShowState& show = m_session.show;
    for (ask(dialog, picture); !find.FindText.isEmpty() && show.ExitRequested == 0;
         ask(dialog, picture)) {
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

void ShowFind::ask(Form14& dialog, const TextWindow& picture) {
    const QPoint place = placeOf(dialog, picture).topLeft();
    dialog.move(place);
    dialog.ask();
    if ((dialog.pos() - place).manhattanLength() > FrameHeight) {
        m_put = dialog.pos();
    }
}

QRect ShowFind::placeOf(const Form14& dialog, const TextWindow& picture) const {
    const QRect text(picture.mapToGlobal(QPoint(0, 0)), picture.size());
    QRect place(QPoint(0, 0), dialog.size() + QSize(0, FrameHeight));
    place.moveCenter(text.center());
    place.moveBottom(text.bottom());
    if (m_put && picture.window()->geometry().contains({*m_put, place.size()})) {
        place.moveTopLeft(*m_put);
    }
    if (standingHit()) {
        const auto rows = m_navigation.rowsOfLine(m_session.script.rtb1.GetLineFromChar(m_hit));
        const QRect hit = picture.placeOfRows(rows.first, rows.count).translated(text.topLeft());
        if (place.intersects(hit)) {
            const bool roomBelow = hit.bottom() + place.height() <= text.bottom();
            place.moveTop(roomBelow ? hit.bottom() + 1 : hit.top() - place.height());
        }
    }
    return place;
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
