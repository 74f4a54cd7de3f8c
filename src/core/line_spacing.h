#pragma once

#include <QString>

namespace velmora {

/// The steps of LineSpacingIndex.
inline constexpr int MinLineSpacingIndex = 1;
inline constexpr int MaxLineSpacingIndex = 36;

/// LineSpacingText: what the user reads, ".75" to ".99" in hundredths, then "1.0" to "2.0" in
/// tenths. An index out of range takes the nearest step.
[[nodiscard]] QString lineSpacingText(int index);

/// The factor by which line heights grow. Below "1.0" it is the text's value; from there up it is
/// deliberately compressed, so that "2.0" gives 1.6.
[[nodiscard]] double lineSpacingFactor(const QString& text);

} // namespace velmora
