#include "platform/desktop/single_instance.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace velmora {

SingleInstance::SingleInstance(const QString& lockFile) : m_lock(lockFile) {
    // A show may run for days: no age makes the lock stale, only the end of its process does.
    m_lock.setStaleLockTime(0);
    m_isFirst = m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError;
}

QString SingleInstance::defaultLockFile() {
    // Asked directly, since Qt warns on the terminal where the variable is not set.
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QString folder = runtime;
    if (runtime.isEmpty() || !QFileInfo(runtime).isDir() || !QFileInfo(runtime).isWritable()) {
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
        QDir().mkpath(folder);
    }
    return folder + QStringLiteral("/velmora.lock");
}

} // namespace velmora
