#include "platform/rich_text/rtf_state.h"

namespace velmora {

void RtfFormats::apply(const RtfFormats& style) {
    const auto take = [&style]<typename T>(RtfProperty property, T& target, const T& source) {
        if ((style.given & property) != 0) {
            target = source;
        }
    };
    const RtfCharacter& from = style.character;
    take(PropertyFont, character.font, from.font);
    take(PropertySize, character.halfPoints, from.halfPoints);
    take(PropertyColor, character.color, from.color);
    take(PropertyHighlight, character.highlight, from.highlight);
    take(PropertyShading, character.shading, from.shading);
    take(PropertyBold, character.bold, from.bold);
    take(PropertyItalic, character.italic, from.italic);
    take(PropertyUnderline, character.underline, from.underline);
    take(PropertyStrike, character.strike, from.strike);
    take(PropertyDoubleStrike, character.doubleStrike, from.doubleStrike);
    take(PropertyCapitals, character.capitals, from.capitals);
    take(PropertyHidden, character.hidden, from.hidden);
    take(PropertyAlignment, paragraph.alignment, style.paragraph.alignment);
    take(PropertyDirection, paragraph.direction, style.paragraph.direction);
    take(PropertyLeftOffset, paragraph.leftOffsetTwips, style.paragraph.leftOffsetTwips);
    take(PropertyFirstLineOffset, paragraph.firstLineOffsetTwips,
         style.paragraph.firstLineOffsetTwips);
    given |= style.given;
}

} // namespace velmora
