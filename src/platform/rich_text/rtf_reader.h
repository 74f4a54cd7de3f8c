#pragma once

#include "platform/outcome.h"
#include "platform/progress.h"
#include "platform/rich_text/rich_text_fragment.h"

#include <QByteArrayView>

namespace velmora {

/// How much a file shows beside its text that a script has no place for. Only what held words or a
/// picture is counted: an empty header is no loss.
struct RtfOmissions final {
    int textBoxes = 0;
    int headersAndFooters = 0;
    /// Endnotes too.
    int footnotes = 0;
    int comments = 0;
    /// Pictures in the text and drawings that hold one.
    int pictures = 0;
    /// Embedded objects that bring no text or picture to show in their place.
    int objects = 0;
    /// Changes to one more format where a text can have no more.
    int formats = 0;

    bool operator==(const RtfOmissions&) const = default;
};

/// What came of reading RTF.
struct RtfReadResult final {
    /// Everything that could be read; also of a damaged file, up to where the damage begins.
    RichTextFragment fragment;
    /// Failure only where nothing is delivered: the bytes are no RTF at all, the text is longer
    /// than any document can be (a million paragraphs, 128 million characters, four million changes
    /// of format) or would take more memory than MemoryBound allows, or the reading was stopped. Of
    /// more than 16,384 different formats the rest look like the text before them.
    Outcome outcome = Outcome::success();
    /// What was left out of the fragment.
    RtfOmissions omitted = {};
};

/// Reads RTF. Never throws, never hangs; nesting, run sizes and memory are bounded.
[[nodiscard]] RtfReadResult readRtf(QByteArrayView rtf, const Progress& goesOn = {});

} // namespace velmora
