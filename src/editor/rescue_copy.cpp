#include "editor/rescue_copy.h"

#include "core/session.h"
#include "platform/timing/clock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

QString RescueCopy::recoveryPath() const {
    if (!m_session.keepsFiles || !QFile::exists(path())) {
        return QString();
    }
    const QString scripts = m_session.settings.ScriptsFolder;
    const bool usable =
        !scripts.isEmpty() && QDir().mkpath(scripts) && QFileInfo(scripts).isWritable();
    return freePath(QDir(usable ? scripts : m_session.AppFolder));
}

QString RescueCopy::begin(const QString& recoveryPath) {
    m_inUse =
        m_session.keepsFiles && (recoveryPath.isEmpty() || QFile::rename(path(), recoveryPath));
    return m_inUse ? recoveryPath : path();
}

void RescueCopy::scriptChanged() {
    m_unsaved = true;
    const Clock& clock = m_session.platform.clock;
    if (!m_timer.isActive()) {
        m_dueSince = clock.counter();
    }
    if (clock.counter() - m_dueSince < LongestSeconds * clock.frequency()) {
        m_timer.start();
    }
}

void RescueCopy::scriptIsSafe() {
    m_unsaved = false;
    discard();
}

void RescueCopy::timeIsUp() {
    if (m_session.show.ShowRunning == 1 || m_session.script.fileInProgress) {
        m_timer.start();
        return;
    }
    keep();
}

void RescueCopy::keep() {
    const RichTextBox& rtb1 = m_session.script.rtb1;
    if (!m_unsaved || rtb1.isEmpty()) {
        discard();
        return;
    }
    m_timer.stop();
    if (m_inUse) {
        // As it stands in the editor, white text included.
        const Outcome written = rtb1.SaveFile(path(), FileFormat::Rtf);
        static_cast<void>(written);
    }
}

void RescueCopy::discard() {
    m_timer.stop();
    if (m_inUse) {
        QFile::remove(path());
    }
}

QString RescueCopy::path() const {
    return m_session.AppFolder + QStringLiteral("unsaved.rtf");
}

} // namespace velmora
