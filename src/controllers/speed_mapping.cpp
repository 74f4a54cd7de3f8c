#include "controllers/speed_mapping.h"

#include "core/number_format.h"
#include "core/speed_range.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double Growth = 1.025;

} // namespace

SpeedDelayTable buildSpeedDelayTable(double delayMs, int scrollSpeedControl) {
    SpeedDelayTable table{};
    if (isFullRange(scrollSpeedControl)) {
        for (int n = 0; n <= speed::Last; ++n) {
            table[static_cast<std::size_t>(n)] = delayMs * std::pow(Growth, n / 2.0);
        }
        return table;
    }
    table.fill(delayMs * std::pow(Growth, speed::SlowestForward));
    for (int n = 0; n <= speed::SlowestForward; ++n) {
        const double wait = delayMs * std::pow(Growth, n);
        table[static_cast<std::size_t>(n)] = wait;
        table[static_cast<std::size_t>(speed::Last - n)] = wait;
    }
    return table;
}

double speedDelayMs(const SpeedDelayTable& table, double scrollSpeed) {
    const auto index = static_cast<int>(roundHalfEven(clampSpeed(scrollSpeed)));
    return table[static_cast<std::size_t>(index)];
}

double speedAtShowStart(double scrollSpeed, int scrollSpeedControl) {
    if (isFullRange(scrollSpeedControl) && scrollSpeed > speed::Middle) {
        scrollSpeed = speed::Last - scrollSpeed;
    }
    return clampSpeed(scrollSpeed);
}

double clampSpeed(double scrollSpeed) {
    return std::clamp(scrollSpeed, 0.0, static_cast<double>(speed::Last));
}

bool inDeadBand(double scrollSpeed) {
    return scrollSpeed >= speed::DeadBandBegin && scrollSpeed <= speed::DeadBandEnd;
}

bool inStopZone(double scrollSpeed) {
    return scrollSpeed >= 244;
}

double wheelSpeed(double scrollSpeed, double delta, bool modifierHeld) {
    constexpr double CoarseUnits = 5;
    constexpr double FineUnits = 60;
    return clampSpeed(scrollSpeed - delta / (modifierHeld ? CoarseUnits : FineUnits));
}

double speedAfterKey(SpeedKey key, double scrollSpeed, int scrollSpeedControl) {
    const bool split = !isFullRange(scrollSpeedControl);
    const bool backwardSide = scrollSpeed > speed::Middle;
    switch (key) {
    case SpeedKey::Left:
        return clampSpeed(scrollSpeed + 2);
    case SpeedKey::Right:
        return clampSpeed(scrollSpeed - 2);
    case SpeedKey::Up:
        return clampSpeed(scrollSpeed - 20);
    case SpeedKey::Down:
        return clampSpeed(scrollSpeed + 20);
    case SpeedKey::Home:
        return split && backwardSide ? speed::Last : 0;
    case SpeedKey::End:
        return !split ? speed::Last : backwardSide ? speed::Middle + 1 : speed::Middle;
    }
    return scrollSpeed;
}

bool speedLeavesLimit(double scrollSpeed, int scrollDirection) {
    return scrollDirection > 0 ? scrollSpeed > speed::DeadBandEnd
                               : scrollSpeed < speed::DeadBandBegin;
}

} // namespace velmora
