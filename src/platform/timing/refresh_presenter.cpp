#include "platform/timing/refresh_presenter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

/// Nobody sees a hundredth of the speed; everybody sees a picture that is skipped now and then.
constexpr double LockTolerance = 0.01;

} // namespace

RefreshPresenter::RefreshPresenter(const Clock& clock, double refreshRate,
                                   std::function<void()> paint)
    : m_clock(clock), m_paint(std::move(paint)) {
    setRefreshRate(refreshRate);
    m_lastPaint = clock.counter() - m_refreshTicks;
}

void RefreshPresenter::setRefreshRate(double refreshRate) {
    m_refreshTicks = static_cast<std::int64_t>(static_cast<double>(m_clock.frequency()) /
                                               std::clamp(refreshRate, 24.0, 240.0));
}

bool RefreshPresenter::stepDone(std::int64_t periodTicks) {
    const std::int64_t now = m_clock.counter();
    if (now - m_lastPaint < m_refreshTicks - periodTicks / 2) {
        m_behind = true;
        return false;
    }
    m_behind = false;
    // The moment before the paint: how long painting takes must not shift the next one. Where steps
    // and refreshes are locked, a step that was late must not either: the paints keep to their
    // grid.
    const std::int64_t target = m_lastPaint + m_refreshTicks;
    const bool onGrid = lockedPeriod(periodTicks) != periodTicks &&
                        std::abs(now - target) < std::min(periodTicks, m_refreshTicks);
    m_lastPaint = onGrid ? target : now;
    m_paint();
    return true;
}

std::int64_t RefreshPresenter::lockedPeriod(std::int64_t periodTicks) const {
    if (periodTicks <= 0) {
        return periodTicks;
    }
    const auto refresh = static_cast<double>(m_refreshTicks);
    const auto period = static_cast<double>(periodTicks);
    const double whole = period < refresh ? refresh / std::round(refresh / period)
                                          : refresh * std::round(period / refresh);
    return std::abs(whole - period) <= period * LockTolerance ? std::llround(whole) : periodTicks;
}

void RefreshPresenter::presentNow() {
    m_behind = false;
    m_lastPaint = m_clock.counter();
    m_paint();
}

void RefreshPresenter::settle() {
    if (m_behind) {
        presentNow();
    }
}

} // namespace velmora
