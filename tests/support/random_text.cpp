#include "support/random_text.h"

#include <algorithm>

namespace velmora {

CharacterFormat RandomText::format() {
    CharacterFormat format{oneOf(m_parts.fonts), oneOf(m_parts.halfPoints), oneOf(m_parts.colors),
                           oneOf(m_parts.backColors)};
    format.bold = once(3);
    format.italic = once(4);
    format.underline = once(5);
    format.strikeThrough = once(6);
    return format;
}

ParagraphFormat RandomText::paragraphFormat() {
    return {static_cast<Alignment>(below(3)),
            once(6) ? static_cast<Direction>(below(3)) : Direction::FromText,
            oneOf(m_parts.leftOffsets), oneOf(m_parts.firstLineOffsets)};
}

QString RandomText::text(int mostPieces) {
    QString result;
    for (int i = below(mostPieces + 1); i > 0; --i) {
        const QString piece = oneOf(m_parts.pieces);
        result += piece.contains(QLatin1String("%1")) ? piece.arg(m_number++) : piece;
    }
    return result;
}

QString RandomText::textWithLineEnds(int mostPieces) {
    static const QStringList ends = {u"\r\n"_qs, u"\r"_qs, u"\n"_qs, u"\u2029"_qs, u"\v"_qs};
    QString result = text(mostPieces);
    for (int i = below(3); i > 0; --i) {
        result += oneOf(ends) + text(mostPieces);
    }
    return result;
}

Paragraph RandomText::paragraph(int formatCount, int mostPieces) {
    Paragraph result;
    result.text = text(mostPieces);
    const int size = static_cast<int>(result.text.size());
    for (int at = 0; at < size;) {
        int end = at + 1 + below(size - at);
        if (!m_parts.runsCutCharacters && end < size && result.text.at(end).isLowSurrogate()) {
            ++end;
        }
        result.runs.push_back({end - at, below(formatCount)});
        at = end;
    }
    result.endFormat = below(formatCount);
    result.format = paragraphFormat();
    return result;
}

RichTextFragment RandomText::fragment(int leastParagraphs, int mostParagraphs, int mostPieces) {
    constexpr int Formats = 4;
    RichTextFragment result;
    for (int i = 0; i < Formats; ++i) {
        result.formats.push_back(format());
    }
    for (int i = leastParagraphs + below(mostParagraphs - leastParagraphs + 1); i > 0; --i) {
        result.paragraphs.push_back(paragraph(Formats, mostPieces));
    }
    return result;
}

RandomTextParts partsForFiles() {
    RandomTextParts parts;
    parts.pieces = {u"word "_qs, u"\\{}"_qs,       u"éüß"_qs,
                    u"日本"_qs,  u"\U0001F3A5"_qs, u"\u2028"_qs,
                    u"\t"_qs,    u"1-2"_qs,        u"\u00a0\u00ad\u2011"_qs,
                    u"^----"_qs, u" "_qs,          u"\u05e9\uE0B7"_qs};
    parts.fonts = {u"Arial"_qs, u"Times New Roman"_qs, u"Symbol"_qs, u"明朝 {x}"_qs, QString()};
    parts.halfPoints = {24, 24, 2, 3, 53, 999, 1999, 2000};
    parts.colors = {Black, Black, White, 0x0000FF, 0x123456, 0xFFFFFE, 0x010000};
    parts.backColors = {0, 0, White, 0x00FF00, 0x563412};
    parts.leftOffsets = {0, 0, 720, 2699, -300};
    parts.firstLineOffsets = {0, 0, 499, -500, 1};
    parts.runsCutCharacters = false;
    return parts;
}

} // namespace velmora
