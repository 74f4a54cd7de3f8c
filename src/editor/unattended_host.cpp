#include "editor/unattended_host.h"

#include "core/screen_scale.h"
#include "core/session.h"

#include <QTextStream>

namespace velmora {

void UnattendedHost::sendZoom() {
    m_session.script.rtb1.setZoom(editorZoom(m_session.screen.ScaleX));
}

QString UnattendedHost::comboFontName() const {
    return m_session.settings.ScreenFontName;
}

double UnattendedHost::comboFontSize() const {
    return m_session.settings.ScreenFontSize;
}

void UnattendedHost::showNotice(const QString& text) {
    if (!text.isEmpty() && m_notices == Notices::ToTerminal) {
        QTextStream(stderr) << "velmora: " << text << '\n';
    }
}

} // namespace velmora
