#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class QWidget;

namespace velmora {

class Session;
class ShowNavigation;

/// The search of a running show: moves the text to the lines that hold what is looked for. The
/// search text is the editor's too.
class ShowFind final {
public:
    ShowFind(Session& session, ShowNavigation& navigation);

    /// Shows the find window over the display until the operator leaves it; the show stands
    /// meanwhile. Leaving it without a hit brings back the picture that stood before.
    void find(QWidget* window);
    /// The next place of LastFindText; nothing happens where there is none.
    void findNext();

private:
    /// The last hit while its picture stands: a search goes on behind it, else from the top line
    /// on.
    [[nodiscard]] std::optional<int> standingHit() const;
    bool step(int direction);

    Session& m_session;
    ShowNavigation& m_navigation;
    /// The last hit: its text, its place, and the top row that it led to.
    QString m_hitText;
    int m_hit = -1;
    std::int64_t m_hitTopRow = 0;
};

} // namespace velmora
