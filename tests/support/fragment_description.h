#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QByteArray>
#include <QString>

namespace velmora {

/// A fragment as one readable line for comparisons. Paragraphs are separated by "|"; a run that is
/// not plain stands in braces behind what it has: b, i, u, s, the size in half points unless 24,
/// c=RRGGBB, h=RRGGBB for the background, the font's name in quotes. A paragraph's format stands in
/// square brackets before it. A line end inside a paragraph is "/".
[[nodiscard]] QString describe(const RichTextFragment& fragment);

/// The same, of what the reader makes of RTF. Without a header, one is put around it.
[[nodiscard]] QString describeRtf(const QByteArray& rtf);

/// Like describe(), but with every paragraph's end format, so that two fragments with the same
/// description hold the same.
[[nodiscard]] QString describeAll(const RichTextFragment& fragment);

/// What every fragment must keep to: runs that cover the text, indexes that exist, no character
/// that a document cannot hold. Empty, or what is wrong.
[[nodiscard]] QString faultOf(const RichTextFragment& fragment);

/// What every reading must keep to, whatever the bytes are: a sound text not longer than they are,
/// which is written and read and written the same again. Empty, or what is wrong; a failure that
/// gives no text is none.
[[nodiscard]] QString faultOfReading(const QByteArray& rtf);

} // namespace velmora
