#include "platform/rich_text/rtf_control_words.h"

#include "platform/rich_text/rtf_omissions.h"

#include <array>

namespace velmora {

namespace {

using Reader = RtfInterpreter;
using enum RtfWordRole;

// clang-format off
constexpr RtfControlWord Words[] = {
    // Characters
    {"emdash", Character, &Reader::character, 0x2014},
    {"endash", Character, &Reader::character, 0x2013},
    {"emspace", Character, &Reader::character, 0x2003},
    {"enspace", Character, &Reader::character, 0x2002},
    {"qmspace", Character, &Reader::character, 0x2005},
    {"bullet", Character, &Reader::character, 0x2022},
    {"lquote", Character, &Reader::character, 0x2018},
    {"rquote", Character, &Reader::character, 0x2019},
    {"ldblquote", Character, &Reader::character, 0x201C},
    {"rdblquote", Character, &Reader::character, 0x201D},
    {"zwj", Character, &Reader::character, 0x200D},
    {"zwnj", Character, &Reader::character, 0x200C},
    {"zwbo", Character, &Reader::character, 0x200B},
    {"zwnbo", Character, &Reader::character, 0x2060},
    {"ltrmark", Character, &Reader::character, 0x200E},
    {"rtlmark", Character, &Reader::character, 0x200F},
    // Structure of the text
    {"tab", Structure, &Reader::character, u'\t'},
    {"line", Structure, &Reader::character, 0x2028},
    {"lbr", Structure, &Reader::character, 0x2028},
    {"par", Structure, &Reader::lineEnd},
    {"page", Structure, &Reader::breakLine},
    {"sect", Structure, &Reader::breakLine},
    {"column", Structure, &Reader::breakLine},
    {"cell", Structure, &Reader::cellEnd},
    {"nestcell", Structure, &Reader::cellEnd},
    {"row", Structure, &Reader::rowEnd},
    {"nestrow", Structure, &Reader::rowEnd},
    {"u", Structure, &Reader::unicode},
    {"uc", Property, &Reader::setUnicodeSkip},
    // Formats of characters
    {"plain", Property, &Reader::plain},
    {"b", Property, &Reader::toggle<&RtfCharacter::bold, PropertyBold>},
    {"i", Property, &Reader::toggle<&RtfCharacter::italic, PropertyItalic>},
    {"ul", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"uld", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"uldash", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"uldashd", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"uldashdd", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"uldb", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulhair", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulhwave", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulldash", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulth", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulthd", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulthdash", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulthdashd", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulthdashdd", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulthldash", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ululdbwave", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulw", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulwave", Property, &Reader::toggle<&RtfCharacter::underline, PropertyUnderline>},
    {"ulnone", Property, &Reader::endUnderline},
    {"strike", Property, &Reader::toggle<&RtfCharacter::strike, PropertyStrike>},
    {"striked", Property, &Reader::toggle<&RtfCharacter::doubleStrike, PropertyDoubleStrike>},
    {"caps", Property, &Reader::toggle<&RtfCharacter::capitals, PropertyCapitals>},
    {"v", Property, &Reader::toggle<&RtfCharacter::hidden, PropertyHidden>},
    {"deleted", Property, &Reader::setDeleted},
    {"mvf", Property, &Reader::setDeleted}, // the place that moved text has left
    {"f", Property, &Reader::setFont},
    {"fs", Property, &Reader::setSize},
    {"cf", Property, &Reader::setColor},
    {"highlight", Property, &Reader::setHighlight},
    {"cb", Property, &Reader::setShading},
    {"chcbpat", Property, &Reader::setShading},
    // Formats of paragraphs
    {"pard", Property, &Reader::resetParagraph},
    {"ql", Property, &Reader::align, int(Alignment::Left)},
    {"qj", Property, &Reader::align, int(Alignment::Left)},
    {"qd", Property, &Reader::align, int(Alignment::Left)},
    {"qt", Property, &Reader::align, int(Alignment::Left)},
    {"qk", Property, &Reader::align, int(Alignment::Left)},
    {"qr", Property, &Reader::align, int(Alignment::Right)},
    {"qc", Property, &Reader::align, int(Alignment::Centre)},
    {"li", Property, &Reader::setLeftOffset},
    {"lin", Property, &Reader::setLeftOffset},
    {"fi", Property, &Reader::setFirstLineOffset},
    {"rtlpar", Property, &Reader::setDirection, int(Direction::RightToLeft)},
    {"ltrpar", Property, &Reader::setDirection, int(Direction::LeftToRight)},
    // The document and its tables
    {"ansi", Property, &Reader::setDocumentCodePage, CodePages::Windows1252},
    {"mac", Property, &Reader::setDocumentCodePage, 10000},
    {"pc", Property, &Reader::setDocumentCodePage, 437},
    {"pca", Property, &Reader::setDocumentCodePage, 850},
    {"ansicpg", Property, &Reader::setAnsiCodePage},
    {"deff", Property, &Reader::setDefaultFont},
    {"fonttbl", Destination, &Reader::enter, int(RtfDestination::FontTable)},
    {"fcharset", Property, &Reader::setFontCharset},
    {"cpg", Property, &Reader::setFontCodePage},
    {"colortbl", Destination, &Reader::enter, int(RtfDestination::ColorTable)},
    {"red", Property, &Reader::setColorComponent},
    {"green", Property, &Reader::setColorComponent, 1},
    {"blue", Property, &Reader::setColorComponent, 2},
    {"stylesheet", Destination, &Reader::enter, int(RtfDestination::StyleSheet)},
    {"s", Property, &Reader::style, int(RtfStyleSheet::Kind::Paragraph)},
    {"cs", IgnorableDestination, &Reader::style, int(RtfStyleSheet::Kind::Character)},
    {"ds", IgnorableDestination, &Reader::otherStyle},
    {"ts", IgnorableDestination, &Reader::otherStyle},
    {"sbasedon", Property, &Reader::setBasedOn},
    // Destinations that are read
    {"upr", Destination, &Reader::enter, int(RtfDestination::Alternatives)},
    {"ud", Alternative, &Reader::enterUnicodeAlternative},
    {"listtext", Destination, &Reader::enterLabel},
    {"pntext", Destination, &Reader::enterLabel},
    {"field", Destination, &Reader::beginField},
    {"fldinst", IgnorableDestination, &Reader::enter, int(RtfDestination::FieldInstruction)},
    {"fldrslt", Destination, &Reader::enterFieldResult},
    {"nesttableprops", IgnorableDestination, &Reader::enter, int(RtfDestination::Body)},
    {"result", Destination, &Reader::enterObjectResult},
    {"NeXTGraphic", Destination, &Reader::skipAttachment},
    // Destinations that are passed over, where they come without \\*
    {"aftncn", Destination, &Reader::skip},
    {"aftnsep", Destination, &Reader::skip},
    {"aftnsepc", Destination, &Reader::skip},
    {"annotation", Destination, &Reader::skip, int(RtfOmission::Comment)},
    {"atnauthor", Destination, &Reader::skip},
    {"atndate", Destination, &Reader::skip},
    {"atnid", Destination, &Reader::skip},
    {"author", Destination, &Reader::skip},
    {"background", Destination, &Reader::skip},
    {"bkmkend", Destination, &Reader::skip},
    {"bkmkstart", Destination, &Reader::skip},
    {"buptim", Destination, &Reader::skip},
    {"category", Destination, &Reader::skip},
    {"colorschememapping", Destination, &Reader::skip},
    {"comment", Destination, &Reader::skip},
    {"company", Destination, &Reader::skip},
    {"creatim", Destination, &Reader::skip},
    {"datafield", Destination, &Reader::skip},
    {"datastore", Destination, &Reader::skip},
    {"do", Destination, &Reader::skip, int(RtfOmission::Shape)},
    {"doccomm", Destination, &Reader::skip},
    {"docvar", Destination, &Reader::skip},
    {"falt", Destination, &Reader::skip},
    {"filetbl", Destination, &Reader::skip},
    {"fname", Destination, &Reader::skip},
    {"fontemb", Destination, &Reader::skip},
    {"fontfile", Destination, &Reader::skip},
    {"footer", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"footerf", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"footerl", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"footerr", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"footnote", Destination, &Reader::skip, int(RtfOmission::Footnote)},
    {"formfield", Destination, &Reader::skip},
    {"ftncn", Destination, &Reader::skip},
    {"ftnsep", Destination, &Reader::skip},
    {"ftnsepc", Destination, &Reader::skip},
    {"generator", Destination, &Reader::skip},
    {"header", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"headerf", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"headerl", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"headerr", Destination, &Reader::skip, int(RtfOmission::HeaderOrFooter)},
    {"htmltag", Destination, &Reader::skip},
    {"info", Destination, &Reader::skip},
    {"keycode", Destination, &Reader::skip},
    {"keywords", Destination, &Reader::skip},
    {"latentstyles", Destination, &Reader::skip},
    {"levelnumbers", Destination, &Reader::skip},
    {"leveltext", Destination, &Reader::skip},
    {"listname", Destination, &Reader::skip},
    {"listoverridetable", Destination, &Reader::skip},
    {"liststylename", Destination, &Reader::skip},
    {"listtable", Destination, &Reader::skip},
    {"manager", Destination, &Reader::skip},
    {"mhtmltag", Destination, &Reader::skip},
    {"nonesttables", Destination, &Reader::skip},
    {"nonshppict", Destination, &Reader::skip},
    {"objalias", Destination, &Reader::skip},
    {"objclass", Destination, &Reader::skip},
    {"objdata", Destination, &Reader::skip, int(RtfOmission::Object)},
    {"objname", Destination, &Reader::skip},
    {"objsect", Destination, &Reader::skip},
    {"objtime", Destination, &Reader::skip},
    {"oldcprops", Destination, &Reader::skip},
    {"oldpprops", Destination, &Reader::skip},
    {"oldsprops", Destination, &Reader::skip},
    {"oldtprops", Destination, &Reader::skip},
    {"operator", Destination, &Reader::skip},
    {"panose", Destination, &Reader::skip},
    {"pgp", Destination, &Reader::skip},
    {"picprop", Destination, &Reader::skip},
    {"pict", Destination, &Reader::skip, int(RtfOmission::Picture)},
    {"pn", Destination, &Reader::skip},
    {"pnseclvl", Destination, &Reader::skip},
    {"pntxta", Destination, &Reader::skip},
    {"pntxtb", Destination, &Reader::skip},
    {"printim", Destination, &Reader::skip},
    {"private", Destination, &Reader::skip},
    {"propname", Destination, &Reader::skip},
    {"revtbl", Destination, &Reader::skip},
    {"revtim", Destination, &Reader::skip},
    {"rsidtbl", Destination, &Reader::skip},
    {"rxe", Destination, &Reader::skip},
    {"shp", Destination, &Reader::skip, int(RtfOmission::Shape)},
    {"shpgrp", Destination, &Reader::skip, int(RtfOmission::Shape)},
    {"shpinst", Destination, &Reader::skip},
    {"shppict", Destination, &Reader::skip, int(RtfOmission::Picture)},
    {"shprslt", Destination, &Reader::skip},
    {"shptxt", Destination, &Reader::skip},
    {"sn", Destination, &Reader::skip},
    {"sp", Destination, &Reader::skip},
    {"staticval", Destination, &Reader::skip},
    {"subject", Destination, &Reader::skip},
    {"sv", Destination, &Reader::skip},
    {"tc", Destination, &Reader::skip},
    {"template", Destination, &Reader::skip},
    {"themedata", Destination, &Reader::skip},
    {"title", Destination, &Reader::skip},
    {"txe", Destination, &Reader::skip},
    {"userprops", Destination, &Reader::skip},
    {"wgrffmtfilter", Destination, &Reader::skip},
    {"windowcaption", Destination, &Reader::skip},
    {"xe", Destination, &Reader::skip},
    {"xform", Destination, &Reader::skip},
    {"xmlnstbl", Destination, &Reader::skip},
};
// clang-format on

constexpr std::size_t SlotCount = 1024;
static_assert(std::size(Words) < SlotCount / 2, "a crowded table would be slow to search");

constexpr std::size_t slotOf(std::string_view word) {
    std::uint32_t hash = 2166136261u;
    for (const char letter : word) {
        hash = (hash ^ static_cast<std::uint32_t>(letter)) * 16777619u;
    }
    return (hash ^ (hash >> 15)) % SlotCount;
}

/// Open addressing: the number of a row plus one, 0 where a slot is free.
constexpr std::array<std::uint16_t, SlotCount> slots() {
    std::array<std::uint16_t, SlotCount> table{};
    for (std::size_t row = 0; row < std::size(Words); ++row) {
        std::size_t slot = slotOf(Words[row].word);
        while (table[slot] != 0) {
            slot = (slot + 1) % SlotCount;
        }
        table[slot] = static_cast<std::uint16_t>(row + 1);
    }
    return table;
}

constexpr std::array<std::uint16_t, SlotCount> Slots = slots();

} // namespace

std::span<const RtfControlWord> rtfControlWords() {
    return Words;
}

const RtfControlWord* findRtfControlWord(std::string_view word) {
    for (std::size_t slot = slotOf(word); Slots[slot] != 0; slot = (slot + 1) % SlotCount) {
        const RtfControlWord& row = Words[Slots[slot] - 1u];
        if (row.word == word) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace velmora
