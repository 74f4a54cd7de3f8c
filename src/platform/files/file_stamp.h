#pragma once

#include <QString>

namespace velmora {

/// What tells that another program has written a file since it was read or written here.
struct FileStamp final {
    /// Bytes; -1 where there is no file.
    qint64 size = -1;
    /// Of the last change of the content, in ms since 1970.
    qint64 changedMs = 0;

    /// A link's is that of the file behind it.
    static FileStamp of(const QString& path);
    bool operator==(const FileStamp&) const = default;
};

} // namespace velmora
