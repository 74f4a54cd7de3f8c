#include "platform/desktop/single_instance.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace velmora {

namespace {

constexpr int Attempts = 5;
constexpr int AttemptMs = 50;

} // namespace

SingleInstance::SingleInstance(const QString& lockFile) : m_lock(lockFile) {
    // A show may run for days: no age makes the lock stale, only the end of its process does.
    m_lock.setStaleLockTime(0);
    m_found = look();
}

SingleInstance::Found SingleInstance::look() {
    const QFileInfo file(m_lock.fileName());
    if (file.exists() && !file.isFile()) {
        // To read a pipe would be to wait for ever.
        return Found::Riddle;
    }
    if (m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError) {
        return Found::Nobody;
    }
    // One that is just being written is empty for a moment.
    qint64 process = 0;
    QString host;
    QString program;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (m_lock.getLockInfo(&process, &host, &program)) {
            return Found::Another;
        }
        if (m_lock.tryLock(AttemptMs)) {
            return Found::Nobody;
        }
    }
    return Found::Riddle;
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
