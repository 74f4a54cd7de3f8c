#include "platform/drawing/text_format.h"

#include "platform/drawing/reference_units.h"

#include <QBrush>
#include <QFont>
#include <QHashFunctions>
#include <QTextCharFormat>

#include <algorithm>

namespace velmora {

namespace {

Rgb24 fromBrush(const QBrush& brush) {
    if (brush.style() == Qt::NoBrush) {
        return 0;
    }
    const QColor color = brush.color();
    return static_cast<Rgb24>(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace

std::size_t qHash(const CharacterFormat& format, std::size_t seed) {
    const int flags = (format.bold ? 1 : 0) | (format.italic ? 2 : 0) | (format.underline ? 4 : 0) |
                      (format.strikeThrough ? 8 : 0);
    return qHashMulti(seed, format.fontName, format.halfPoints, format.color, format.backColor,
                      flags);
}

QTextCharFormat toTextFormat(const CharacterFormat& format) {
    QTextCharFormat result;
    if (!format.fontName.isEmpty()) {
        result.setFontFamilies({format.fontName});
    }
    const int halfPoints = std::clamp(format.halfPoints, CharacterFormat::MinHalfPoints,
                                      CharacterFormat::MaxHalfPoints);
    result.setProperty(QTextFormat::FontPixelSize, halfPoints * UnitsPerHalfPoint);
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
        result.halfPoints = pixels / UnitsPerHalfPoint;
    }
    result.color = fromBrush(format.foreground());
    result.backColor = fromBrush(format.background());
    result.bold = format.fontWeight() > QFont::Medium;
    result.italic = format.fontItalic();
    result.underline = format.fontUnderline();
    result.strikeThrough = format.fontStrikeOut();
    return result;
}

} // namespace velmora
