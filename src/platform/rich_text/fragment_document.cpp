#include "platform/rich_text/fragment_document.h"

namespace velmora {

namespace {

/// Paragraph properties are kept as whole twips of our own: the document's own margins are real
/// numbers in pixels.
enum BlockProperty : int {
    LeftOffset = QTextFormat::UserProperty + 1,
    FirstLineOffset,
};

} // namespace

QTextBlockFormat toBlockFormat(const ParagraphFormat& format) {
    QTextBlockFormat result;
    if (format.alignment != Alignment::Left) {
        result.setAlignment(format.alignment == Alignment::Right ? Qt::AlignRight
                                                                 : Qt::AlignHCenter);
    }
    if (format.rightToLeft) {
        result.setLayoutDirection(Qt::RightToLeft);
    }
    if (format.leftOffsetTwips != 0) {
        result.setProperty(LeftOffset, format.leftOffsetTwips);
    }
    if (format.firstLineOffsetTwips != 0) {
        result.setProperty(FirstLineOffset, format.firstLineOffsetTwips);
    }
    return result;
}

ParagraphFormat fromBlockFormat(const QTextBlockFormat& format) {
    ParagraphFormat result;
    const Qt::Alignment alignment = format.alignment();
    if (alignment.testFlag(Qt::AlignRight)) {
        result.alignment = Alignment::Right;
    } else if (alignment.testFlag(Qt::AlignHCenter)) {
        result.alignment = Alignment::Centre;
    }
    result.rightToLeft = format.layoutDirection() == Qt::RightToLeft;
    result.leftOffsetTwips = format.intProperty(LeftOffset);
    result.firstLineOffsetTwips = format.intProperty(FirstLineOffset);
    return result;
}

} // namespace velmora
