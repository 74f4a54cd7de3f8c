#include "platform/timing/refresh_presenter.h"

#include <algorithm>
#include <utility>

namespace velmora {

RefreshPresenter::RefreshPresenter(const Clock& clock, double refreshRate,
                                   std::function<void()> paint)
    : m_clock(clock), m_paint(std::move(paint)),
      m_refreshTicks(static_cast<std::int64_t>(static_cast<double>(clock.frequency()) /
                                               std::clamp(refreshRate, 24.0, 240.0))),
      m_lastPaint(clock.counter() - m_refreshTicks) {}

bool RefreshPresenter::stepDone(std::int64_t periodTicks) {
    const std::int64_t now = m_clock.counter();
    if (now - m_lastPaint < m_refreshTicks - periodTicks / 2) {
        m_behind = true;
        return false;
    }
    m_behind = false;
    // The moment before the paint: how long painting takes must not shift the next one.
    m_lastPaint = now;
    m_paint();
    return true;
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
