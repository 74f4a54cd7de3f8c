#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

#include <stdexcept>

namespace velmora {

/// Contents of a file; null when it cannot be read.
inline QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file of the test's own and gives its path.
inline QString writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("the test's own file could not be written");
    }
    return path;
}

/// The folder of collected files beside the sources; it need not exist.
inline QDir corpus() {
    const QDir sources(qEnvironmentVariable("VELMORA_SOURCE_DIR", u"."_qs));
    return QDir(sources.absoluteFilePath(u"../shared/corpus"_qs));
}

} // namespace velmora
