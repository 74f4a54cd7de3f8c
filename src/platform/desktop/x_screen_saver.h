#pragma once

namespace velmora {

/// Holds the X server's own screen saver back, and its switching off of displays, or lets them go
/// on. Does nothing on another platform. The server forgets a client that has gone.
void suspendXScreenSaver(bool suspend);

} // namespace velmora
