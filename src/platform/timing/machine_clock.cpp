#include "platform/timing/machine_clock.h"

#include <QTime>

#include <chrono>
#include <thread>

namespace velmora {

std::int64_t MachineClock::counter() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

double MachineClock::Timer() const {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void MachineClock::sleepMicroseconds(std::int64_t microseconds) {
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
}

void MachineClock::spinUntil(std::int64_t ticks) {
    while (counter() < ticks) {
    }
}

} // namespace velmora
