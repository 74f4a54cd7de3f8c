#pragma once

#include <QString>

namespace velmora {

/// Where the session bus is, or would be. Named so because the library, asked for a session bus
/// where there is none, starts one.
[[nodiscard]] QString sessionBusAddress();

/// Gives the libraries of this process an address at which they look in vain, at once.
/// sessionBusAddress() still tells the real one: a bus may only be slow to start.
void hideSessionBus();

/// Whether a message bus answers at an address of the form "unix:path=..." or "unix:abstract=...",
/// as the D-Bus specification has them, within so many milliseconds: it must greet a client. Asked
/// before the bus library is, which waits for a bus that hangs as long as it likes. Any other kind
/// of address, a network one above all, is none.
[[nodiscard]] bool busAnswers(const QString& address, int timeoutMs);

} // namespace velmora
