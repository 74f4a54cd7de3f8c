#pragma once

#include <QString>
#include <QTimer>

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

    explicit RescueCopy(Session& session, int quietMs = QuietMs);

    /// The script has changed: the copy is due.
    void scriptChanged();
    /// Makes the copy what the script is now, or removes it where that is saved or empty.
    void keep();
    /// The script is given up or has been saved on the way out.
    void discard();

    /// Puts the copy that an earlier session left among the scripts, under a name that no file has.
    /// Returns its path; empty when there was none. Before this nothing is kept or removed.
    [[nodiscard]] QString recover();

private:
    void timeIsUp();
    [[nodiscard]] QString path() const;

    Session& m_session;
    QTimer m_timer;
    /// What an earlier session left is out of the way.
    bool m_inUse = false;
};

} // namespace velmora
