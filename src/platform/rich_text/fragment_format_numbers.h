#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QHashFunctions>

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace velmora {

/// Numbers different character formats from 0, in the order in which they come. A script may hold
/// tens of thousands of them, so each is found by its hash.
class FormatNumbers final {
public:
    struct Number final {
        int number = 0;
        bool isNew = false;
    };

    Number of(const CharacterFormat& format) {
        const auto next = static_cast<int>(m_numbers.size());
        const auto [place, isNew] = m_numbers.try_emplace(format, next);
        return {place->second, isNew};
    }

private:
    struct Hash final {
        std::size_t operator()(const CharacterFormat& format) const {
            return qHashMulti(0, format.fontName, format.halfPoints, format.color, format.backColor,
                              format.bold, format.italic, format.underline, format.strikeThrough);
        }
    };

    std::unordered_map<CharacterFormat, int, Hash> m_numbers;
};

} // namespace velmora
