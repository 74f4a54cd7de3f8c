#include "platform/files/file_stamp.h"

#include <QDateTime>
#include <QFileInfo>

namespace velmora {

FileStamp FileStamp::of(const QString& path) {
    const QFileInfo file(path);
    return file.exists() ? FileStamp{file.size(), file.lastModified().toMSecsSinceEpoch()}
                         : FileStamp{};
}

} // namespace velmora
