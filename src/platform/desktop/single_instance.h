#pragma once

#include <QLockFile>
#include <QString>

namespace velmora {

/// The lock that makes a second start of the same user end at once. It is held while the object
/// lives, and a lock that a crash left behind is taken over.
class SingleInstance final {
public:
    enum class Found {
        /// This process holds the lock. A lock that cannot be written at all counts as held: a full
        /// disk must not keep the program from starting.
        Nobody,
        /// Another running process of this user does.
        Another,
        /// The lock is there, and does not tell whose it is.
        Riddle
    };

    explicit SingleInstance(const QString& lockFile = defaultLockFile());

    [[nodiscard]] Found found() const { return m_found; }
    [[nodiscard]] QString lockFile() const { return m_lock.fileName(); }

    /// In the user's run-time folder, else in the user's cache folder, which is made.
    [[nodiscard]] static QString defaultLockFile();

private:
    [[nodiscard]] Found look();

    QLockFile m_lock;
    Found m_found = Found::Riddle;
};

} // namespace velmora
