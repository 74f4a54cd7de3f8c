#include "editor/rescue_copy.h"

#include "core/editor_host.h"
#include "core/session.h"
#include "platform/files/whole_file.h"
#include "platform/timing/clock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace velmora {

namespace {

/// Between two looks whether the copy is due.
constexpr int LookMs = 100;
/// While a copy fails, the notice comes again when the last one has gone.
constexpr int NoticeSeconds = 60;

/// A path in the folder that no file has.
QString freePath(const QDir& folder) {
    QString name = QStringLiteral("Recovered Script.rtf");
    for (int number = 2; folder.exists(name); ++number) {
        name = QStringLiteral("Recovered Script %1.rtf").arg(number);
    }
    return folder.filePath(name);
}

} // namespace

RescueCopy::RescueCopy(Session& session, EditorHost& host)
    : m_session(session), m_host(host),
      m_waitTicks(static_cast<std::int64_t>(
          WaitSeconds * static_cast<double>(session.platform.clock.frequency()))) {
    m_timer.setInterval(LookMs);
    m_timer.callOnTimeout([this] { keepIfDue(); });
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
    if (!m_timer.isActive()) {
        m_dueAt = m_session.platform.clock.counter() + m_waitTicks;
        m_timer.start();
    }
}

void RescueCopy::scriptIsSafe() {
    m_unsaved = false;
    discard();
}

void RescueCopy::keepIfDue() {
    const bool maySave = m_session.show.ShowRunning == 0 && !m_session.script.fileInProgress;
    if (maySave && m_timer.isActive() && m_session.platform.clock.counter() >= m_dueAt) {
        keep();
    }
}

void RescueCopy::keep() {
    const RichTextBox& rtb1 = m_session.script.rtb1;
    if (!m_unsaved || rtb1.isEmpty()) {
        discard();
        return;
    }
    m_timer.stop();
    if (m_inUse) {
        write();
    }
}

void RescueCopy::write() {
    const Clock& clock = m_session.platform.clock;
    const std::int64_t start = clock.counter();
    // As it stands in the editor, white text included.
    const Outcome written = writeWholeFile(path(), m_session.script.rtb1.TextRTF(),
                                           QFile::ReadOwner | QFile::WriteOwner);
    const std::int64_t cost = clock.counter() - start;
    m_waitTicks =
        std::max(static_cast<std::int64_t>(WaitSeconds * static_cast<double>(clock.frequency())),
                 CostShare * cost);
    if (written) {
        m_tellAt = 0;
        return;
    }
    if (clock.counter() >= m_tellAt) {
        m_tellAt = clock.counter() + NoticeSeconds * clock.frequency();
        m_host.showNotice(
            QStringLiteral("No copy of the unsaved script can be kept in %1. %2 Please save it.")
                .arg(path(), written.reason()));
    }
    scriptChanged();
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
