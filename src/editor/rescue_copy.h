#pragma once

#include <QString>
#include <QTimer>

#include <cstdint>

namespace velmora {

class Session;

/// The copy of a script that is in no file yet, beside the settings: what is left of it when the
/// session, the screen or the machine ends without a word to the program. Owned by the main window.
///
/// It is written a moment after the last change, never during a show, and is gone as soon as there
/// is nothing left to rescue. A copy that cannot be written is let go without a word: the script is
/// still in the editor, and its save will tell.
class RescueCopy final {
public:
    /// Behind the last change: long enough for whoever types not to notice the writing of a long
    /// script.
    static constexpr int QuietMs = 2000;
    /// Whoever types without a pause has a copy at least so often.
    static constexpr int LongestSeconds = 20;

    explicit RescueCopy(Session& session, int quietMs = QuietMs);

    /// Where the copy that an earlier session left shall go: among the scripts, under a name that
    /// no file has. Empty when there is none.
    [[nodiscard]] QString recoveryPath() const;
    /// Moves that copy there, if there is one, and returns where it is. From now on copies are
    /// kept; before, nothing is written or removed. One that cannot be moved stays where it was,
    /// and this session keeps none.
    QString begin(const QString& recoveryPath);

    /// The script has changed: the copy is due.
    void scriptChanged();
    /// The script is in a file, or it is given up.
    void scriptIsSafe();
    /// Makes the copy what the script is now, or removes it where that is safe or empty.
    void keep();

private:
    void timeIsUp();
    void discard();
    [[nodiscard]] QString path() const;

    Session& m_session;
    QTimer m_timer;
    /// The clock's counter at the first change that is in no copy yet.
    std::int64_t m_dueSince = 0;
    bool m_unsaved = false;
    bool m_inUse = false;
};

} // namespace velmora
