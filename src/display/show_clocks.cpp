#include "display/show_clocks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora {

QString remainingText(double seconds) {
    const auto whole = static_cast<std::int64_t>(std::llround(std::max(0.0, seconds)));
    return QStringLiteral("%1:%2")
        .arg(whole / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace velmora
