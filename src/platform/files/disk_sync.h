#pragma once

#include "platform/outcome.h"

namespace velmora {

/// Waits until the disk has what was written to the open file with this descriptor. The reason of a
/// failure is the system's.
Outcome syncToDisk(int descriptor);

} // namespace velmora
