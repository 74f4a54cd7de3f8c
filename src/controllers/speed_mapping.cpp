#include "controllers/speed_mapping.h"

#include "core/number_format.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double Growth = 1.025;
constexpr int SlowestForward = 119;
constexpr int Middle = 127;
constexpr int Last = 255;

} // namespace

SpeedDelayTable buildSpeedDelayTable(double delayMs, int scrollSpeedControl) {
    SpeedDelayTable table{};
    if (isFullRange(scrollSpeedControl)) {
        for (int n = 0; n <= Last; ++n) {
            table[static_cast<std::size_t>(n)] = delayMs * std::pow(Growth, n / 2.0);
        }
        return table;
    }
    table.fill(delayMs * std::pow(Growth, SlowestForward));
    for (int n = 0; n <= SlowestForward; ++n) {
        const double wait = delayMs * std::pow(Growth, n);
        table[static_cast<std::size_t>(n)] = wait;
        table[static_cast<std::size_t>(Last - n)] = wait;
    }
    return table;
}

double speedDelayMs(const SpeedDelayTable& table, double scrollSpeed) {
    const auto index = static_cast<int>(roundHalfEven(clampSpeed(scrollSpeed)));
    return table[static_cast<std::size_t>(index)];
}

double speedAtShowStart(double scrollSpeed, int scrollSpeedControl) {
    if (isFullRange(scrollSpeedControl) && scrollSpeed > Middle) {
        scrollSpeed = Last - scrollSpeed;
    }
    return clampSpeed(scrollSpeed);
}

double clampSpeed(double scrollSpeed) {
    return std::clamp(scrollSpeed, 0.0, static_cast<double>(Last));
}

bool inDeadBand(double scrollSpeed) {
    return scrollSpeed >= 120 && scrollSpeed <= 136;
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
    const bool backwardSide = scrollSpeed > Middle;
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
        return split && backwardSide ? Last : 0;
    case SpeedKey::End:
        return !split ? Last : backwardSide ? Middle + 1 : Middle;
    }
    return scrollSpeed;
}

bool speedLeavesLimit(double scrollSpeed, int scrollDirection) {
    return scrollDirection > 0 ? scrollSpeed > 136 : scrollSpeed < 120;
}

} // namespace velmora
