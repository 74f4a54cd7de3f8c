#pragma once

#include <QString>

namespace velmora {

/// The sign that a field shows whose instruction is SYMBOL: the number of a character and a font.
/// 0 for every other field.
[[nodiscard]] char16_t symbolOfField(const QString& instruction);

/// The words of an EQ field, a formula or a reading aid: what stands in its brackets, its parts
/// with a blank between them. Empty for every other field.
[[nodiscard]] QString equationText(const QString& instruction);

/// What a field shows whose result word processors leave empty, for the instruction holds it: one
/// of the two above, else nothing.
[[nodiscard]] QString textOfField(const QString& instruction);

} // namespace velmora
