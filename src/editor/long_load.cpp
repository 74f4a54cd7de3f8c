#include "editor/long_load.h"

#include "core/editor_host.h"
#include "core/session.h"
#include "platform/rich_text/rich_text_fragment.h"
#include "platform/timing/clock.h"
#include "platform/timing/event_pump.h"

namespace velmora {

namespace {

constexpr double QuietSeconds = 0.8;
/// Often enough for a window that answers.
constexpr double SecondsBetweenLooks = 0.05;

std::int64_t ticksFromNow(const Clock& clock, double seconds) {
    return clock.counter() +
           static_cast<std::int64_t>(seconds * static_cast<double>(clock.frequency()));
}

} // namespace

bool takesLong(const RichTextFragment& text) {
    constexpr double unitsOfAMoment = 3e6;
    constexpr double unitsAParagraph = 40;
    constexpr double unitsARun = 10;
    constexpr double unitsAFormat = 400;
    double units = unitsAFormat * static_cast<double>(text.formats.size());
    for (const Paragraph& paragraph : text.paragraphs) {
        units += static_cast<double>(paragraph.text.size()) + unitsAParagraph +
                 unitsARun * static_cast<double>(paragraph.runs.size());
    }
    return units > unitsOfAMoment;
}

LongLoad::LongLoad(Session& session, EditorHost& host)
    : m_session(session), m_host(host),
      m_nextLook(ticksFromNow(session.platform.clock, QuietSeconds)) {}

Progress LongLoad::part(double from, double to) {
    return [this, from, to](double done) { return goesOn(from + (to - from) * done); };
}

bool LongLoad::goesOn(double share) {
    const Clock& clock = m_session.platform.clock;
    if (m_cancelled || clock.counter() < m_nextLook) {
        return !m_cancelled;
    }
    m_cancelled = !m_host.showProgressShare(share);
    m_session.platform.pump.DoEvents();
    m_nextLook = ticksFromNow(clock, SecondsBetweenLooks);
    return !m_cancelled;
}

} // namespace velmora
