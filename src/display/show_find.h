#pragma once

#include "display/display_traits.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <cstdint>
#include <optional>

namespace velmora {

class Form14;
class Session;
class ShowNavigation;
class TextWindow;

/// The search of a running show: moves the text to the lines that hold what is looked for. The
/// search text is the editor's too.
class ShowFind final {
public:
    ShowFind(Session& session, ShowNavigation& navigation);

    /// Shows the find window over the display until the operator leaves it; the show stands
    /// meanwhile. Leaving it without a hit brings back the picture that stood before.
    void find(const TextWindow& picture, Orientation face);
    /// The next place of LastFindText; nothing happens where there is none.
    void findNext();

private:
    /// The last hit while its picture stands: a search goes on behind it, else from the top line
    /// on.
    [[nodiscard]] std::optional<int> standingHit() const;
    bool step(int direction);
    /// Shows the dialog and waits for its answer. It stands where the operator has put it, at the
    /// foot of the picture at first, and steps aside while it would lie over the hit.
    void ask(Form14& dialog, const TextWindow& picture);
    [[nodiscard]] QRect placeOf(const Form14& dialog, const TextWindow& picture) const;

    Session& m_session;
    ShowNavigation& m_navigation;
    /// The last hit: its text, its place, and the top row that it led to.
    QString m_hitText;
    int m_hit = -1;
    std::int64_t m_hitTopRow = 0;
    /// Where the operator has put the find window.
    std::optional<QPoint> m_put;
};

} // namespace velmora
