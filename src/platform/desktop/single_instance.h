#pragma once

#include <QLockFile>
#include <QString>

namespace velmora {

/// The lock that makes a second start of the same user end at once. It is held while the object
/// lives, and a lock that a crash left behind is taken over.
class SingleInstance final {
public:
    explicit SingleInstance(const QString& lockFile = defaultLockFile());

    /// False when another running process of this user holds the lock. A lock that cannot be
    /// written at all counts as held: a full disk must not keep the program from starting.
    [[nodiscard]] bool isFirst() const { return m_isFirst; }

    /// In the user's run-time folder, else in the user's cache folder, which is made.
    [[nodiscard]] static QString defaultLockFile();

private:
    QLockFile m_lock;
    bool m_isFirst = false;
};

} // namespace velmora
