#include "platform/devices/latin_keys.h"

#include "platform/devices/key_numbers.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace velmora {

namespace {

/// Control and Alt together are AltGr, which types.
bool isCommand(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ControlModifier) !=
           event.modifiers().testFlag(Qt::AltModifier);
}

} // namespace

LatinKeys::LatinKeys() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool LatinKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease &&
        event->type() != QEvent::ShortcutOverride) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const int letter = latinKey(key);
    if (!isCommand(key) || letter == key.key()) {
        return false;
    }
    // Without its text, which is of the other script.
    QKeyEvent latin(key.type(), letter, key.modifiers(), key.nativeScanCode(),
                    key.nativeVirtualKey(), key.nativeModifiers(), QString(), key.isAutoRepeat());
    latin.setAccepted(event->isAccepted());
    QCoreApplication::sendEvent(watched, &latin);
    event->setAccepted(latin.isAccepted());
    return true;
}

} // namespace velmora
