#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QByteArray>

namespace velmora {

/// Writes a fragment as RTF, deterministically: the same fragment gives the same bytes.
/// A \par stands between two paragraphs and not behind the last, so that readRtf gives back as many
/// paragraphs as were written. The output is 7-bit; every other character is written as \uN.
[[nodiscard]] QByteArray writeRtf(const RichTextFragment& fragment);

} // namespace velmora
