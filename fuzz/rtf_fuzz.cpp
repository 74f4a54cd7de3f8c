// The RTF reader under libFuzzer: whatever the bytes are, reading ends, what comes of it is a sound
// text, and what is written of it is read and written the same again.

#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

#include <cstdlib>

using namespace velmora;

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void requireSound(const RichTextFragment& fragment, qsizetype inputSize) {
    const auto formatCount = static_cast<int>(fragment.formats.size());
    qsizetype units = 0;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        qsizetype covered = 0;
        for (const TextRun& run : paragraph.runs) {
            require(run.length > 0 && run.format >= 0 && run.format < formatCount);
            covered += run.length;
        }
        require(covered == paragraph.text.size());
        require(paragraph.endFormat >= 0 && paragraph.endFormat < formatCount);
        require(paragraph.text.isValidUtf16());
        units += paragraph.text.size() + 1;
    }
    // No input grows: a character takes a byte at least.
    require(units <= inputSize + 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    const RtfReadResult read = readRtf(input);
    require(static_cast<bool>(read.outcome) == !read.fragment.paragraphs.empty());
    if (!read.outcome) {
        return 0;
    }
    requireSound(read.fragment, input.size());
    const QByteArray written = writeRtf(read.fragment);
    const RtfReadResult again = readRtf(written);
    require(static_cast<bool>(again.outcome));
    require(again.fragment.paragraphs.size() == read.fragment.paragraphs.size());
    require(writeRtf(again.fragment) == written);
    return 0;
}
