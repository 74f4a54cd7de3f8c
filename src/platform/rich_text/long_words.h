#pragma once

#include <QString>

#include <vector>

namespace velmora {

/// The stretches of a paragraph in which no line may break for more than MaxWordLength characters.
///
/// Line breaking looks at a whole word before it learns that the word does not fit, and starts
/// again with the next line: a megabyte without a blank would take half a minute. Inside of these
/// stretches a line is simply filled to the brim, which gives the same breaks.
class LongWords final {
public:
    static constexpr int MaxWordLength = 1024;

    /// Costs nothing worth mentioning where every word is of human length.
    explicit LongWords(const QString& text);

    /// Whether a line that begins here stands in a long word that goes on for more than
    /// MaxWordLength characters. Positions must ascend from one call to the next.
    [[nodiscard]] bool holds(int position);

private:
    struct Stretch final {
        int begin = 0;
        int end = 0;
    };

    void addStretches(const QString& text, int begin, int end);

    std::vector<Stretch> m_stretches;
    size_t m_next = 0;
};

} // namespace velmora
