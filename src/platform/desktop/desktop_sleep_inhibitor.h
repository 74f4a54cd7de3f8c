#pragma once

#include "platform/desktop/sleep_inhibitor.h"

#include <memory>

namespace velmora {

/// Asks whatever keeps a desktop awake: its screen saver service and the login manager, both on the
/// message bus, and the X server's own screen saver. Whoever has gone, crashed or not, is forgotten
/// by all three. The bus is talked to on a thread of its own, so that one that is missing or does
/// not answer delays nothing; nothing of a show is touched there.
class DesktopSleepInhibitor final : public SleepInhibitor {
public:
    DesktopSleepInhibitor();
    ~DesktopSleepInhibitor() override;

    void inhibit(const QString& reason) override;
    void release() override;

private:
    class BusThread;

    std::unique_ptr<BusThread> m_bus;
    bool m_inhibited = false;
};

} // namespace velmora
