#include "platform/rich_text/rich_text_view_caret.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <QTimerEvent>

namespace velmora {

void CaretBlink::restart() {
    // A flash is a whole period, shown and hidden; 0 or less stands for a caret that never blinks.
    const int flashMs = QGuiApplication::styleHints()->cursorFlashTime();
    if (flashMs >= 2) {
        m_timer.start(flashMs / 2, this);
    } else {
        m_timer.stop();
    }
    show(true);
}

void CaretBlink::stop() {
    m_timer.stop();
    show(false);
}

void CaretBlink::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_timer.timerId()) {
        show(!m_shown);
    }
}

void CaretBlink::show(bool on) {
    if (m_shown != on) {
        m_shown = on;
        Q_EMIT toggled();
    }
}

} // namespace velmora
