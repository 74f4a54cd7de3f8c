#include "platform/files/whole_file.h"

#include "platform/files/disk_sync.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace velmora {

namespace {

constexpr qint64 MegaByte = 1024LL * 1024;

Outcome notRegular() {
    return Outcome::failure(QStringLiteral("It is not a file on a disk."));
}

Outcome unreadable(const QString& reason) {
    return Outcome::failure(QStringLiteral("The file cannot be read: %1.").arg(reason));
}

Outcome unwritable(const QString& reason) {
    return Outcome::failure(QStringLiteral("The file cannot be written: %1.").arg(reason));
}

/// A write that the disk cuts short has no reason; the attempt at the rest has.
bool writeAll(QIODevice& file, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0) {
            return false;
        }
        bytes = bytes.sliced(written);
    }
    return true;
}

} // namespace

Outcome readWholeFile(const QString& path, qint64 limit, QByteArray& bytes) {
    const QFileInfo info(path);
    if (info.isDir()) {
        return Outcome::failure(QStringLiteral("It is a folder."));
    }
    if (!info.exists()) {
        return Outcome::failure(QStringLiteral("There is no such file."));
    }
    if (!info.isFile()) {
        return notRegular();
    }
    if (info.size() > limit) {
        return Outcome::failure(
            QStringLiteral("The file is too large: it has %1 MB, and %2 MB is the most.")
                .arg((info.size() + MegaByte - 1) / MegaByte)
                .arg(limit / MegaByte));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return unreadable(file.errorString());
    }
    // Not read(limit): that would reserve the limit for every file.
    QByteArray read = file.read(info.size());
    if (file.error() != QFileDevice::NoError) {
        return unreadable(file.errorString());
    }
    bytes = std::move(read);
    return Outcome::success();
}

Outcome writeWholeFile(const QString& path, const QByteArray& bytes,
                       QFileDevice::Permissions permissions) {
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        return info.isDir() ? Outcome::failure(QStringLiteral("It is a folder.")) : notRegular();
    }
    QSaveFile file(path);
    // Not through a buffer: commit() of Qt 6.4 takes no notice of a flush inside it that fails, and
    // would put a file cut short in the place of the old one.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        (permissions != 0 && !file.setPermissions(permissions)) || !writeAll(file, bytes)) {
        return unwritable(file.errorString());
    }
    if (const Outcome synced = syncToDisk(file.handle()); !synced) {
        return unwritable(synced.reason());
    }
    return file.commit() ? Outcome::success() : unwritable(file.errorString());
}

} // namespace velmora
