#include "platform/timing/qt_event_pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace velmora {

void QtEventPump::DoEvents() {
    QCoreApplication::processEvents();
}

void QtEventPump::waitForEvents(int timeoutMs) {
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(timeoutMs);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    // What the first batch posted is served as well, as DoEvents would.
    QCoreApplication::processEvents();
}

} // namespace velmora
