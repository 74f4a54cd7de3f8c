#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box_private.h"
#include "platform/rich_text/rtf_fragment_builder.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/text_services/text_encoding.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace velmora {

namespace {

constexpr qint64 MegaByte = 1024LL * 1024;

/// What is larger is no script; the bounds keep a wrong pick from filling the memory.
qint64 limitOf(FileFormat format) {
    return (format == FileFormat::Rtf ? 256 : 64) * MegaByte;
}

Outcome readFile(const QString& path, qint64 limit, QByteArray& bytes) {
    const QFileInfo info(path);
    if (info.isDir()) {
        return Outcome::failure(QStringLiteral("It is a folder."));
    }
    if (!info.exists()) {
        return Outcome::failure(QStringLiteral("There is no such file."));
    }
    if (!info.isFile()) {
        return Outcome::failure(QStringLiteral("It is not a file on a disk."));
    }
    if (info.size() > limit) {
        return Outcome::failure(
            QStringLiteral("The file is too large: it has %1 MB, and %2 MB is the most.")
                .arg((info.size() + MegaByte - 1) / MegaByte)
                .arg(limit / MegaByte));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Outcome::failure(
            QStringLiteral("The file cannot be read: %1.").arg(file.errorString()));
    }
    // Not read(limit): that would reserve the limit for every file.
    bytes = file.read(info.size());
    if (file.error() != QFileDevice::NoError) {
        return Outcome::failure(
            QStringLiteral("The file cannot be read: %1.").arg(file.errorString()));
    }
    return Outcome::success();
}

/// Other programs take U+000B for nothing at all and join the words beside it.
QString withPlainLineEnds(QString text) {
    return text.replace(QChar(u'\v'), QStringLiteral("\r\n"));
}

} // namespace

Outcome RichTextBox::LoadFile(const QString& path, FileFormat format) {
    QByteArray bytes;
    if (Outcome read = readFile(path, limitOf(format), bytes); !read) {
        return read;
    }
    if (format == FileFormat::Rtf) {
        return setTextRTF(bytes);
    }
    const QString text = decodeText(bytes);
    if (paragraphCount(text) > RtfFragmentBuilder::MaxParagraphs) {
        return Outcome::failure(QStringLiteral("The text is too long."));
    }
    setText(text);
    return Outcome::success();
}

Outcome RichTextBox::SaveFile(const QString& path, FileFormat format) const {
    const QByteArray bytes =
        format == FileFormat::Rtf ? TextRTF() : encodeText(withPlainLineEnds(Text()));
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!written) {
        return Outcome::failure(
            QStringLiteral("The file cannot be written: %1.").arg(file.errorString()));
    }
    return Outcome::success();
}

} // namespace velmora
