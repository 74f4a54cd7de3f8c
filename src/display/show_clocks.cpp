#include "display/show_clocks.h"

#include <algorithm>
#include <cmath>

namespace velmora {

QString remainingText(std::int64_t rows, double secondsPerStep) {
    const auto seconds = static_cast<std::int64_t>(
        std::llround(std::max(0.0, static_cast<double>(rows) * secondsPerStep)));
    return QStringLiteral("%1:%2")
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace velmora
