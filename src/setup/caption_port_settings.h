#pragma once

#include "setup/cycling_setting.h"

namespace velmora {

/// The cycling settings of Form30.
namespace captions {
extern const CyclingSetting Active;
extern const CyclingSetting Port;
extern const CyclingSetting Speed;
extern const CyclingSetting Parity;
extern const CyclingSetting DataBits;
extern const CyclingSetting StopBits;
extern const CyclingSetting Flow;
} // namespace captions

/// The port in one line: "Off", or as "On: COM 3, 9600, n, 8, 1". Limits the four settings behind
/// the port that it tells.
[[nodiscard]] QString captionPortSummary(Settings& settings);

} // namespace velmora
