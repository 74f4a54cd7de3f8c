#pragma once

#include <QString>

namespace velmora {

/// The program's name with its version, as window titles and `--version` tell it. The version is
/// the build's.
[[nodiscard]] inline QString programName() {
    return QStringLiteral("Velmora V" VELMORA_VERSION);
}

} // namespace velmora
