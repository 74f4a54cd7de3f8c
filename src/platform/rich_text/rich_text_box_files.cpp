#include "platform/files/whole_file.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/memory_bound.h"
#include "platform/rich_text/rich_text_box_private.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/text_services/text_encoding.h"

#include <utility>

namespace velmora {

namespace {

constexpr qint64 MegaByte = 1024LL * 1024;
/// Of reading a plain text.
constexpr double ShareOfDecoding = 0.5;

/// What is larger is no script; the bounds keep a wrong pick from filling the memory.
qint64 limitOf(FileFormat format) {
    return (format == FileFormat::Rtf ? 256 : 64) * MegaByte;
}

/// Other programs take U+000B for nothing at all and join the words beside it.
QString withPlainLineEnds(QString text) {
    return text.replace(QChar(u'\v'), QStringLiteral("\r\n"));
}

} // namespace

RtfReadResult RichTextBox::readFile(const QString& path, FileFormat format, const Progress& goesOn,
                                    TextForm* form) const {
    QByteArray bytes;
    if (Outcome read = readWholeFile(path, limitOf(format), bytes); !read) {
        return {{}, read};
    }
    if (format == FileFormat::Rtf && !bytes.isEmpty()) {
        return readRtf(bytes, goesOn);
    }
    if (!looksLikeText(bytes)) {
        return {{}, Outcome::failure(QStringLiteral("It holds something else than text."))};
    }
    MemoryBound memory(bytes.size());
    const QString text = decodeText(std::exchange(bytes, {}), form);
    memory.addUnits(text.size(), defaultFormat().halfPoints);
    memory.addParagraphs(paragraphCount(text));
    if (memory.isExceeded()) {
        return {{}, memory.failure()};
    }
    if (goesOn && !goesOn(ShareOfDecoding)) {
        return {{}, Outcome::failure(QStringLiteral("It was stopped."))};
    }
    return {fragmentOfText(text, defaultFormat())};
}

Outcome RichTextBox::LoadFile(const QString& path, FileFormat format) {
    const RtfReadResult read = readFile(path, format, {});
    if (read.outcome) {
        d->replaceAll(read.fragment, read.omitted);
    }
    return read.outcome;
}

Outcome RichTextBox::SaveFile(const QString& path, FileFormat format, const TextForm& form) const {
    const QByteArray bytes =
        format == FileFormat::Rtf ? TextRTF() : encodeText(withPlainLineEnds(Text()), form);
    return writeWholeFile(path, bytes);
}

} // namespace velmora
