#include "editor/convert.h"

#include "core/session.h"
#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "editor/script_saver.h"
#include "editor/unattended_host.h"

#include <QTextStream>

namespace velmora {

namespace {

void say(QString text) {
    QTextStream(stderr) << "velmora: "
                        << text.replace(QStringLiteral("\r\n\r\n"), QStringLiteral("\n")) << '\n';
}

int failed(const QString& text) {
    say(text);
    return 1;
}

/// The name says the format; what is written under another ending would not be what it says.
bool isWritable(const QString& path) {
    return path.endsWith(u".rtf"_qs, Qt::CaseInsensitive) ||
           path.endsWith(u".txt"_qs, Qt::CaseInsensitive);
}

} // namespace

int convertScript(Session& session, const QString& from, const QString& to) {
    if (!isWritable(to)) {
        return failed(QStringLiteral("I can only write RTF and text. Please give %1 a name that "
                                     "ends in .rtf or .txt.")
                          .arg(to));
    }
    UnattendedHost host(session, UnattendedHost::Notices::Nowhere);
    applyEditorDefaults(session);
    ScriptLoader loader(session, host, nullptr);
    const Outcome loaded = loader.loadUnattended(from);
    if (!loaded) {
        return failed(loaded.reason());
    }
    const Outcome saved = writeScriptTo(session, to);
    if (!saved) {
        return failed(QStringLiteral("I could not save %1.\n%2").arg(to, saved.reason()));
    }
    if (const QString leftOut = loader.leftOutText(); !leftOut.isEmpty()) {
        say(leftOut);
    }
    return 0;
}

} // namespace velmora
