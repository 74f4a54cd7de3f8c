#pragma once

#include "platform/desktop/sleep_inhibitor.h"

namespace velmora {

/// Whether the machine would be kept awake now.
class FakeSleepInhibitor final : public SleepInhibitor {
public:
    void inhibit(const QString&) override { inhibited = true; }
    void release() override { inhibited = false; }

    bool inhibited = false;
};

} // namespace velmora
