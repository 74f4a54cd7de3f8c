#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QString>

#include <random>

namespace velmora {

/// Small random documents in which everything that is special comes near something else special.
class RandomFragments final {
public:
    explicit RandomFragments(unsigned seed) : m_random(seed) {}

    /// 0 to limit - 1.
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool once(int inSo) { return below(inSo) == 0; }

    CharacterFormat format() {
        static const QString names[] = {QStringLiteral("Arial"), QStringLiteral("DejaVu Sans"),
                                        QStringLiteral("Liberation Serif")};
        CharacterFormat format;
        format.fontName = names[below(3)];
        format.halfPoints = 40 + 7 * below(3);
        format.color = once(2) ? White : Black;
        format.backColor = once(4) ? 0x800000 : 0;
        format.bold = once(3);
        format.italic = once(4);
        format.underline = once(5);
        format.strikeThrough = once(6);
        return format;
    }

    ParagraphFormat paragraphFormat() {
        ParagraphFormat format;
        format.alignment = static_cast<Alignment>(below(3));
        format.rightToLeft = once(6);
        format.leftOffsetTwips = once(4) ? 400 : 0;
        format.firstLineOffsetTwips = once(4) ? -200 : 0;
        return format;
    }

    /// Text without line ends of a paragraph.
    QString text(int most) {
        static const QString pieces[] = {QStringLiteral("a"),
                                         QStringLiteral("office "),
                                         QStringLiteral("Wort "),
                                         QStringLiteral("^"),
                                         QStringLiteral(" "),
                                         QStringLiteral("\u00C9"),
                                         QStringLiteral("\u2028"),
                                         QStringLiteral("\t"),
                                         QStringLiteral("\U0001F600"),
                                         QStringLiteral("\u05E9"),
                                         QStringLiteral("unbreakablyLongWordOfManyLetters")};
        QString result;
        for (int i = below(most + 1); i > 0; --i) {
            result += pieces[below(std::size(pieces))];
        }
        return result;
    }

    QString textWithLineEnds(int most) {
        static const QString ends[] = {QStringLiteral("\r\n"), QStringLiteral("\r"),
                                       QStringLiteral("\n"), QStringLiteral("\u2029"),
                                       QStringLiteral("\v")};
        QString result = text(most);
        for (int i = below(3); i > 0; --i) {
            result += ends[below(std::size(ends))] + text(most);
        }
        return result;
    }

    Paragraph paragraph(int formats, int mostText) {
        Paragraph result;
        result.text = text(mostText);
        for (int left = static_cast<int>(result.text.size()); left > 0;) {
            const int length = 1 + below(left);
            result.runs.push_back({length, below(formats)});
            left -= length;
        }
        result.endFormat = below(formats);
        result.format = paragraphFormat();
        return result;
    }

    /// May be empty.
    RichTextFragment fragment(int mostParagraphs, int mostText = 8) {
        RichTextFragment result;
        for (int i = 0; i < 4; ++i) {
            result.formats.push_back(format());
        }
        for (int i = below(mostParagraphs + 1); i > 0; --i) {
            result.paragraphs.push_back(paragraph(4, mostText));
        }
        return result;
    }

private:
    std::mt19937 m_random;
};

} // namespace velmora
