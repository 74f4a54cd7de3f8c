#pragma once

#include "core/settings.h"

#include <QStringView>

#include <array>
#include <span>

namespace velmora {

/// A setting of the caption port with its values, which are numbered on from `first`.
struct CaptionPortSetting final {
    int Settings::*setting;
    int first;
    std::span<const QStringView> texts;

    [[nodiscard]] int last() const { return first + static_cast<int>(texts.size()) - 1; }
    /// Brings the setting into its range, and gives the value.
    int limit(Settings& settings) const;
    /// To the next value; from the last to the first. Limits first.
    void advance(Settings& settings) const;
    /// The text of the value, which must be in range.
    [[nodiscard]] QString text(const Settings& settings) const;
};

namespace captions {
extern const CaptionPortSetting Active;
extern const CaptionPortSetting Port;
extern const CaptionPortSetting Speed;
extern const CaptionPortSetting Parity;
extern const CaptionPortSetting DataBits;
extern const CaptionPortSetting StopBits;
extern const CaptionPortSetting Flow;
} // namespace captions

/// The port in one line: "Off", or as "On: COM 3, 9600, n, 8, 1". Limits the four settings behind
/// the port that it tells.
[[nodiscard]] QString captionPortSummary(Settings& settings);

} // namespace velmora
