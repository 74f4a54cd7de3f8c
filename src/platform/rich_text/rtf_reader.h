#pragma once

#include "platform/outcome.h"
#include "platform/rich_text/rich_text_fragment.h"

#include <QByteArrayView>

namespace velmora {

/// What came of reading RTF.
struct RtfReadResult final {
    /// Everything that could be read; also of a damaged file, up to where the damage begins.
    RichTextFragment fragment;
    /// Failure only where nothing is delivered: the bytes are no RTF at all, or the text is longer
    /// than any document can be (a million paragraphs, 128 million characters, four million changes
    /// of format). Of more than 65,536 different formats the rest look like the text before them.
    Outcome outcome = Outcome::success();
};

/// Reads RTF. Never throws, never hangs; nesting, run sizes and memory are bounded.
[[nodiscard]] RtfReadResult readRtf(QByteArrayView rtf);

} // namespace velmora
