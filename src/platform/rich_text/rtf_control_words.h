#pragma once

#include "platform/rich_text/rtf_interpreter.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora {

/// What a control word does to a character that stands in its place as the replacement of a \u,
/// and whether it may follow \*.
enum class RtfWordRole : std::uint8_t {
    /// Sets something; takes no place in the text.
    Property,
    /// Stands for one character.
    Character,
    /// Ends or begins something in the text.
    Structure,
    /// Says what its group is for.
    Destination,
    /// The same, and is known when \* stands before it.
    IgnorableDestination,
    /// The Unicode form of a pair of alternatives.
    Alternative,
};

struct RtfControlWord final {
    using Handler = void (RtfInterpreter::*)(const RtfToken&, int);

    std::string_view word;
    RtfWordRole role = RtfWordRole::Property;
    Handler handler = nullptr;
    int value = 0;

    [[nodiscard]] constexpr bool isKnownIgnorable() const {
        return role == RtfWordRole::IgnorableDestination || role == RtfWordRole::Alternative;
    }
};

/// Every control word that the reader follows; it passes over all others.
[[nodiscard]] std::span<const RtfControlWord> rtfControlWords();

/// Null for a word that the reader does not follow.
[[nodiscard]] const RtfControlWord* findRtfControlWord(std::string_view word);

} // namespace velmora
