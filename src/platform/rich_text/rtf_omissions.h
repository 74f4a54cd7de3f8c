#pragma once

#include "platform/rich_text/rtf_reader.h"

#include <QByteArrayView>

#include <cstdint>

namespace velmora {

/// What a skipped group would have shown.
enum class RtfOmission : std::uint8_t {
    /// Nothing that a reader of the page would see.
    None,
    HeaderOrFooter,
    Footnote,
    Comment,
    Picture,
    Object,
    /// A drawing, which counts for the words or the picture that it holds.
    Shape,
};

/// Counts a skipped group, whose bytes these are, if there was something to see in it.
void countOmission(RtfOmissions& omissions, RtfOmission kind, QByteArrayView group);

} // namespace velmora
