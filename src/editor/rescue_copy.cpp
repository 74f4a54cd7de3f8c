#include "editor/rescue_copy.h"

#include "core/session.h"

#include <QDir>
#include <QFile>

namespace velmora {

namespace {

/// A path in the folder that no file has.
QString freePath(const QDir& folder) {
    QString name = QStringLiteral("Recovered Script.rtf");
    for (int number = 2; folder.exists(name); ++number) {
        name = QStringLiteral("Recovered Script %1.rtf").arg(number);
    }
    return folder.filePath(name);
}

} // namespace

RescueCopy::RescueCopy(Session& session, int quietMs) : m_session(session) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(quietMs);
    m_timer.callOnTimeout([this] { timeIsUp(); });
}

void RescueCopy::scriptChanged() {
    m_timer.start();
}

void RescueCopy::timeIsUp() {
    if (m_session.show.ShowRunning == 1 || m_session.script.fileInProgress) {
        m_timer.start();
        return;
    }
    keep();
}

void RescueCopy::keep() {
    const ScriptState& script = m_session.script;
    if (script.TextChanged == 0 || script.rtb1.isEmpty()) {
        discard();
        return;
    }
    m_timer.stop();
    if (m_inUse) {
        // As it stands in the editor, white text included.
        const Outcome written = script.rtb1.SaveFile(path(), FileFormat::Rtf);
        static_cast<void>(written);
    }
}

void RescueCopy::discard() {
    m_timer.stop();
    if (m_inUse) {
        QFile::remove(path());
    }
}

QString RescueCopy::recover() {
    m_inUse = m_session.keepsFiles;
    if (!m_inUse || !QFile::exists(path())) {
        return QString();
    }
    for (const QString& folder : {m_session.settings.ScriptsFolder, m_session.AppFolder}) {
        if (folder.isEmpty() || !QDir().mkpath(folder)) {
            continue;
        }
        const QString recovered = freePath(QDir(folder));
        if (QFile::rename(path(), recovered)) {
            return recovered;
        }
    }
    return path();
}

QString RescueCopy::path() const {
    return m_session.AppFolder + QStringLiteral("unsaved.rtf");
}

} // namespace velmora
