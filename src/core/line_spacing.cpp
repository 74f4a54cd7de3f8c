#include "core/line_spacing.h"

#include <QLatin1Char>

#include <algorithm>

namespace velmora {

namespace {

/// The index of "1.0", where the steps turn from hundredths to tenths.
constexpr int IndexOfOne = 26;

} // namespace

QString lineSpacingText(int index) {
    index = std::clamp(index, MinLineSpacingIndex, MaxLineSpacingIndex);
    if (index < IndexOfOne) {
        return QStringLiteral(".%1").arg(75 + index - MinLineSpacingIndex);
    }
    const int tenths = 10 + index - IndexOfOne;
    return QStringLiteral("%1.%2").arg(tenths / 10).arg(tenths % 10);
}

double lineSpacingFactor(const QString& text) {
    const double value = text.toDouble();
    return value < 1.0 ? value : (10 * value - 10) * 0.06 + 1.0;
}

} // namespace velmora
