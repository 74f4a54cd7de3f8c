#include "editor/long_paragraph_question.h"

#include "core/number_format.h"
#include "core/session.h"
#include "platform/desktop/message_boxes.h"
#include "platform/rich_text/long_paragraphs.h"

namespace velmora {

LongParagraphAnswer breakLongParagraphs(Session& session, const QString& name,
                                        RichTextFragment& text) {
    const int longest = long_paragraphs::longestOf(text);
    if (longest == 0) {
        return LongParagraphAnswer::NoneThere;
    }
    const MessageAnswer answer = session.platform.messages.show(
        MessageIcon::Question, QStringLiteral("Very Long Paragraph"),
        QStringLiteral("%1 has a paragraph of %2 characters. Each key in it would make the editor "
                       "wait.\r\n\r\nOK breaks such paragraphs into several of at most %3 "
                       "characters, at a line end or a blank wherever there is one. No word and no "
                       "character is lost, and the file stays as it is until you save.\r\n\r\n"
                       "Cancel loads nothing.")
            .arg(name, formatThousands(longest), formatThousands(long_paragraphs::UnitsOfAPiece)),
        MessageButtons::OkCancel);
    if (answer != MessageAnswer::Ok) {
        return LongParagraphAnswer::Cancelled;
    }
    long_paragraphs::breakUp(text);
    return LongParagraphAnswer::Broken;
}

} // namespace velmora
