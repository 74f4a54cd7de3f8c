#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <cstdint>

namespace velmora {

/// 22 inches, the widest that a page can be; the offsets of a paragraph are limited to it.
inline constexpr int RtfMaxOffsetTwips = 31'680;

/// The character properties that RTF's control words set. Colours are resolved, the font is an
/// index into the document's font table or DefaultFont.
struct RtfCharacter final {
    static constexpr int DefaultFont = -1;
    static constexpr int DefaultHalfPoints = 24;

    int font = DefaultFont;
    int halfPoints = DefaultHalfPoints;
    Rgb24 color = Black;
    /// A marker pen's colour; covers the shading. 0 is none.
    Rgb24 highlight = 0;
    Rgb24 shading = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool doubleStrike = false;
    bool capitals = false;
    bool hidden = false;
    bool deleted = false;

    bool operator==(const RtfCharacter&) const = default;
};

/// One bit for each property that a style can set.
enum RtfProperty : std::uint32_t {
    PropertyFont = 1u << 0,
    PropertySize = 1u << 1,
    PropertyColor = 1u << 2,
    PropertyHighlight = 1u << 3,
    PropertyShading = 1u << 4,
    PropertyBold = 1u << 5,
    PropertyItalic = 1u << 6,
    PropertyUnderline = 1u << 7,
    PropertyStrike = 1u << 8,
    PropertyDoubleStrike = 1u << 9,
    PropertyHidden = 1u << 10,
    PropertyCapitals = 1u << 11,
    PropertyAlignment = 1u << 16,
    PropertyDirection = 1u << 17,
    PropertyLeftOffset = 1u << 18,
    PropertyFirstLineOffset = 1u << 19,
};

/// The properties in effect, with the set of those that were given since the group of properties
/// began; the rest has its default. So a style is a set of formats, and applying one leaves alone
/// what the style does not mention.
struct RtfFormats final {
    RtfCharacter character;
    ParagraphFormat paragraph;
    std::uint32_t given = 0;

    /// Takes over what the other one gives.
    void apply(const RtfFormats& style);
};

/// What the text of a group is for.
enum class RtfDestination : std::uint8_t {
    Body,
    FontTable,
    ColorTable,
    StyleSheet,
    /// A field's instruction: kept for the fields whose text it holds.
    FieldInstruction,
    /// A pair of an old and a Unicode form of the same thing, of which the second is read.
    Alternatives,
    /// A member of such a pair that has not yet shown to be the second.
    Alternative,
};

/// What a brace saves and restores.
struct RtfGroup final {
    RtfFormats formats;
    RtfDestination destination = RtfDestination::Body;
    /// What the second of two alternatives is for.
    RtfDestination outer = RtfDestination::Body;
    /// The group in which the destination began.
    bool ownsDestination = false;
    /// The last font that was no symbol font, or DefaultFont: what signs of a symbol font are shown
    /// in once they are Unicode. An index as in RtfCharacter::font.
    int textFont = RtfCharacter::DefaultFont;
    /// How many units follow a \u as its replacement for old readers.
    std::uint8_t unicodeSkip = 1;
};

} // namespace velmora
