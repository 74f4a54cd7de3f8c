#pragma once

#include <QStringView>

#include <cstdint>

namespace velmora {

/// Fonts whose bytes stand for pictures instead of letters, as far as their signs are in Unicode.
enum class SymbolSet : std::uint8_t { None, Symbol, ZapfDingbats, Wingdings, Unknown };

/// The set of a font by its name; Unknown where it is none of those known here.
[[nodiscard]] SymbolSet symbolSetOfFont(QStringView fontName);

/// The sign at a byte of a symbol font. Where Unicode has none, the character U+F000 + byte by
/// which such fonts are addressed; in an unknown set letters and digits stay what they are, so
/// that text that was marked as a symbol font by mistake is still read.
[[nodiscard]] char16_t symbolCharacter(SymbolSet set, unsigned char byte);

} // namespace velmora
