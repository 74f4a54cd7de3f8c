#pragma once

#include "platform/timing/clock.h"
#include "platform/timing/presenter.h"

#include <functional>

namespace velmora {

/// Paints directly after a step, at the first step that comes within half a step of the screen's
/// next refresh, counted from the last paint. So at a constant speed every painted picture has
/// moved by the same number of rows; a free-running paint at the refresh rate would show none and
/// two rows in turn.
class RefreshPresenter final : public Presenter {
public:
    /// refreshRate in pictures a second; limited to 24 to 240. paint must put the picture on the
    /// screen before it returns.
    RefreshPresenter(const Clock& clock, double refreshRate, std::function<void()> paint);

    void setRefreshRate(double refreshRate);
    bool stepDone(std::int64_t periodTicks) override;
    [[nodiscard]] std::int64_t lockedPeriod(std::int64_t periodTicks) const override;
    void presentNow() override;
    void settle() override;

private:
    const Clock& m_clock;
    std::function<void()> m_paint;
    std::int64_t m_refreshTicks = 0;
    std::int64_t m_lastPaint = 0;
    bool m_behind = false;
};

} // namespace velmora
