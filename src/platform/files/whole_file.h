#pragma once

#include "platform/outcome.h"

#include <QByteArray>
#include <QFileDevice>
#include <QString>

namespace velmora {

/// Reads a regular file, or a link to one, of at most limit bytes. Nothing that could block, such
/// as a pipe or a device, is opened. bytes is left alone on a failure.
Outcome readWholeFile(const QString& path, qint64 limit, QByteArray& bytes);

/// Replaces a file, or makes a new one, by way of a temporary file beside it. It succeeds only when
/// the disk has taken every byte; a failure leaves what was there as it was. What exists and is no
/// regular file is refused. permissions is for a new file that is not for everybody; 0 leaves them
/// to the system.
Outcome writeWholeFile(const QString& path, const QByteArray& bytes,
                       QFileDevice::Permissions permissions = {});

} // namespace velmora
