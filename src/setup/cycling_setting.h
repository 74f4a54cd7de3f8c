#pragma once

#include "core/settings.h"
#include "widgets/setting_rows.h"

#include <functional>
#include <span>

namespace velmora {

class Session;

/// An information box.
struct Notice final {
    QStringView title;
    QStringView text;
};

/// A value of a setting, and what the window says of it.
struct SettingValue final {
    int value = 0;
    QStringView text;
    /// Shown before the setting takes the value; null for none.
    const Notice* notice = nullptr;
};

/// A setting that its button leads through its values in turn.
struct CyclingSetting final {
    SettingRowNames names;
    int Settings::*setting;
    /// In ascending order.
    std::span<const SettingValue> values;

    /// What the window says of the present value; empty for one that is not in the table.
    [[nodiscard]] QString text(const Settings& settings) const;
    /// The entry behind the present value, the first behind the last and behind one that is not in
    /// the table.
    [[nodiscard]] const SettingValue& next(const Settings& settings) const;
    /// Brings the setting between the first and the last value.
    void limit(Settings& settings) const;

private:
    [[nodiscard]] const SettingValue* find(int value) const;
};

/// Adds the setting's row, whose button leads on; `pressed` is called first.
void addCyclingRow(
    SettingRows& grid, const CyclingSetting& cycle, Session& session,
    const std::function<void()>& pressed = [] {});

} // namespace velmora
