#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QString>
#include <QStringView>

namespace velmora {

/// Plain text in one format. CR LF, CR, LF, U+000C, U+001C to U+001E, U+0085 and U+2029 end a
/// paragraph; U+000B and U+2028 end a line inside of one. Other control characters but the tab
/// become blanks, so that the words beside them stay apart wherever the text goes. Text without a
/// line end makes one paragraph, empty text too.
[[nodiscard]] RichTextFragment fragmentOfText(QStringView text, const CharacterFormat& format,
                                              const ParagraphFormat& paragraphFormat = {});

/// How many paragraphs fragmentOfText makes of a text.
[[nodiscard]] qsizetype paragraphCount(QStringView text);

/// The plain text, paragraphs joined by CR LF, U+2028 as U+000B.
[[nodiscard]] QString textOfFragment(const RichTextFragment& fragment);

/// The text as a paragraph may hold it, of the same length: line ends become U+2028, and the
/// characters that a text document reserves for itself U+FFFD.
[[nodiscard]] QString paragraphText(const QString& text);

/// Whether a paragraph of this text is read from right to left.
[[nodiscard]] bool isRightToLeft(Direction direction, QStringView text);

/// Whether text that runs from right to left is in it, or a mark that turns text around.
[[nodiscard]] bool runsRightToLeft(QStringView text);

/// Whether two paragraphs look the same; their runs may be cut and numbered differently.
[[nodiscard]] bool sameParagraph(const RichTextFragment& leftOwner, const Paragraph& left,
                                 const RichTextFragment& rightOwner, const Paragraph& right);
[[nodiscard]] bool sameContents(const RichTextFragment& left, const RichTextFragment& right);

/// The format with a number, or a default one where the fragment has none of it.
[[nodiscard]] const CharacterFormat& formatAt(const RichTextFragment& fragment, int index);

} // namespace velmora
