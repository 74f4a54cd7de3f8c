#include "editor/convert.h"

#include "core/session.h"
#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "editor/script_saver.h"
#include "editor/unattended_host.h"

#include <QTextStream>

namespace velmora {

namespace {

int failed(const QString& text) {
    QString lines = text;
    QTextStream(stderr) << "velmora: "
                        << lines.replace(QStringLiteral("\r\n\r\n"), QStringLiteral("\n")) << '\n';
    return 1;
}

} // namespace

int convertScript(Session& session, const QString& from, const QString& to) {
    UnattendedHost host(session, UnattendedHost::Notices::Nowhere);
    applyEditorDefaults(session);
    const Outcome loaded = ScriptLoader(session, host, nullptr).loadUnattended(from);
    if (!loaded) {
        return failed(loaded.reason());
    }
    const Outcome saved = writeScriptTo(session, to);
    if (!saved) {
        return failed(QStringLiteral("I could not save %1.\n%2").arg(to, saved.reason()));
    }
    return 0;
}

} // namespace velmora
