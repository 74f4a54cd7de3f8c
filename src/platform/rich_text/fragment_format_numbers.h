#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QHash>

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
        const auto known = m_numbers.constFind(format);
        if (known != m_numbers.constEnd()) {
            return {*known, false};
        }
        const int next = static_cast<int>(m_numbers.size());
        m_numbers.insert(format, next);
        return {next, true};
    }

private:
    QHash<CharacterFormat, int> m_numbers;
};

} // namespace velmora
