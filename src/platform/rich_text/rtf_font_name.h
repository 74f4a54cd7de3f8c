#pragma once

#include <QString>

namespace velmora {

/// Longest name of a font that is read or written; longer ones are cut.
inline constexpr int MaxFontNameUnits = 128;

/// The form of a font's name that a font table can hold: without semicolons, which end a name
/// there, without control characters, with single blanks. Reader and writer both use it, so that a
/// name that went through one of them goes through unchanged ever after.
[[nodiscard]] QString rtfFontName(const QString& name);

} // namespace velmora
