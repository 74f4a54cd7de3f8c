#pragma once

#include <QString>
#include <QTimer>

#include <cstdint>

namespace velmora {

class EditorHost;
class Session;

/// The copy of a script that is in no file yet, beside the settings: what is left of it when the
/// session, the screen or the machine ends without a word to the program. Owned by the main window.
///
/// It is written a moment after the first change since the last copy, however long typing goes on,
/// but never during a show, and is gone as soon as there is nothing left to rescue. One that cannot
/// be written is told and tried again. Nobody but its user may read it.
class RescueCopy final {
public:
    /// From a change to its copy, as long as writing one takes less than a tenth of it.
    static constexpr double WaitSeconds = 2;
    /// Otherwise so many times what the last one took.
    static constexpr int CostShare = 10;

    /// host is told of a copy that cannot be written.
    RescueCopy(Session& session, EditorHost& host);

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
    /// The same if the copy is due and may be written now. The timer calls it.
    void keepIfDue();

private:
    void write();
    void discard();
    [[nodiscard]] QString path() const;

    Session& m_session;
    EditorHost& m_host;
    /// Runs while a copy is to be written.
    QTimer m_timer;
    /// Of the clock's counter.
    std::int64_t m_dueAt = 0;
    std::int64_t m_waitTicks = 0;
    bool m_unsaved = false;
    bool m_inUse = false;
    /// From when on a copy that cannot be written is told of.
    std::int64_t m_tellAt = 0;
};

} // namespace velmora
