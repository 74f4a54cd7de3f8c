#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QStringList>

#include <random>
#include <vector>

namespace velmora {

/// What random text is made of; each is one of its list, the same as likely as any other. The
/// defaults bring everything that is special near something else special.
struct RandomTextParts final {
    /// A "%1" in a piece becomes a number that rises with each such piece.
    QStringList pieces = {u"a"_qs,
                          u"office "_qs,
                          u"Wort "_qs,
                          u"^"_qs,
                          u" "_qs,
                          u"\u00C9"_qs,
                          u"\u2028"_qs,
                          u"\t"_qs,
                          u"\U0001F600"_qs,
                          u"\u05E9"_qs,
                          u"unbreakablyLongWordOfManyLetters"_qs};
    QStringList fonts = {u"Arial"_qs, u"DejaVu Sans"_qs, u"Liberation Serif"_qs};
    std::vector<int> halfPoints = {40, 47, 54};
    std::vector<Rgb24> colors = {Black, White};
    std::vector<Rgb24> backColors = {0, 0, 0, 0x800000};
    std::vector<int> leftOffsets = {0, 0, 0, 400};
    std::vector<int> firstLineOffsets = {0, 0, 0, -200};
    /// Runs may end between the two halves of a character outside of the BMP.
    bool runsCutCharacters = true;
};

/// Random documents; the same for the same seed.
class RandomText final {
public:
    explicit RandomText(unsigned seed, RandomTextParts parts = {})
        : m_random(seed), m_parts(std::move(parts)) {}

    /// 0 to limit - 1.
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool once(int inSo) { return below(inSo) == 0; }

    CharacterFormat format();
    ParagraphFormat paragraphFormat();
    /// Text without line ends of a paragraph.
    QString text(int mostPieces);
    QString textWithLineEnds(int mostPieces);
    /// Cut into runs anywhere, of formats below formatCount.
    Paragraph paragraph(int formatCount, int mostPieces);
    RichTextFragment fragment(int leastParagraphs, int mostParagraphs, int mostPieces);

private:
    template<typename List> auto oneOf(const List& list) {
        return list[static_cast<typename List::size_type>(below(static_cast<int>(list.size())))];
    }

    std::mt19937 m_random;
    RandomTextParts m_parts;
    int m_number = 0;
};

/// What a file may hold at its worst: names, sizes, colours, offsets and characters at the limits.
[[nodiscard]] RandomTextParts partsForFiles();

} // namespace velmora
