#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextDocument>

namespace velmora {

/// A character format as the document keeps it: the size as pixels of the layout's reference units,
/// no hinting, so that metrics scale without a jump.
[[nodiscard]] QTextCharFormat toTextFormat(const CharacterFormat& format);
[[nodiscard]] CharacterFormat fromTextFormat(const QTextCharFormat& format);

[[nodiscard]] QTextBlockFormat toBlockFormat(const ParagraphFormat& format);
[[nodiscard]] ParagraphFormat fromBlockFormat(const QTextBlockFormat& format);

} // namespace velmora
