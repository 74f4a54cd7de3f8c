#pragma once

#include <string_view>

namespace velmora {

/// The sign that a field shows whose instruction is SYMBOL: the number of a character and a font.
/// Word processors leave the field's result empty. 0 for every other field.
[[nodiscard]] char16_t symbolOfField(std::string_view instruction);

} // namespace velmora
