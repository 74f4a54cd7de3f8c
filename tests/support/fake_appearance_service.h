#pragma once

#include "platform/desktop/appearance_service.h"

#include <map>
#include <utility>
#include <vector>

namespace velmora {

/// A desktop's visual effects in memory, with a record of what was written.
class FakeAppearanceService final : public AppearanceService {
public:
    [[nodiscard]] std::optional<int> read(AppearanceSetting setting) override {
        return refuses ? std::nullopt : std::optional<int>(values[setting]);
    }
    [[nodiscard]] bool write(AppearanceSetting setting, int value, bool keep) override {
        if (refuses) {
            return false;
        }
        values[setting] = value;
        written.emplace_back(setting, value);
        lastKept = keep;
        return true;
    }

    std::map<AppearanceSetting, int> values;
    std::vector<std::pair<AppearanceSetting, int>> written;
    bool lastKept = false;
    bool refuses = false;
};

} // namespace velmora
