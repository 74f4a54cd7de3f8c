#include "platform/rich_text/fragment_document.h"

#include "platform/drawing/color.h"
#include "platform/rich_text/document_layout.h"

#include <QBrush>
#include <QColor>
#include <QFont>

#include <algorithm>

namespace velmora {

namespace {

/// Paragraph properties are kept as whole twips of our own: the document's own margins are real
/// numbers in pixels.
enum BlockProperty : int {
    LeftOffset = QTextFormat::UserProperty + 1,
    FirstLineOffset,
};

Rgb24 fromBrush(const QBrush& brush) {
    if (brush.style() == Qt::NoBrush) {
        return 0;
    }
    const QColor color = brush.color();
    return static_cast<Rgb24>(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace

QTextCharFormat toTextFormat(const CharacterFormat& format) {
    QTextCharFormat result;
    if (!format.fontName.isEmpty()) {
        result.setFontFamilies({format.fontName});
    }
    const int halfPoints = std::clamp(format.halfPoints, CharacterFormat::MinHalfPoints,
                                      CharacterFormat::MaxHalfPoints);
    result.setProperty(QTextFormat::FontPixelSize, halfPoints * DocumentLayout::UnitsPerHalfPoint);
    result.setFontHintingPreference(QFont::PreferNoHinting);
    // Every property is set, always in this order: equal formats are then one format of the
    // document, and the layout does not cut a word between them.
    result.setForeground(toColor(format.color));
    result.setBackground(format.backColor != 0 ? QBrush(toColor(format.backColor)) : QBrush());
    result.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
    result.setFontItalic(format.italic);
    result.setFontUnderline(format.underline);
    result.setFontStrikeOut(format.strikeThrough);
    return result;
}

CharacterFormat fromTextFormat(const QTextCharFormat& format) {
    CharacterFormat result;
    result.fontName = format.fontFamilies().toStringList().value(0);
    if (const int pixels = format.intProperty(QTextFormat::FontPixelSize); pixels > 0) {
        result.halfPoints = pixels / DocumentLayout::UnitsPerHalfPoint;
    }
    result.color = fromBrush(format.foreground());
    result.backColor = fromBrush(format.background());
    result.bold = format.fontWeight() > QFont::Medium;
    result.italic = format.fontItalic();
    result.underline = format.fontUnderline();
    result.strikeThrough = format.fontStrikeOut();
    return result;
}

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
