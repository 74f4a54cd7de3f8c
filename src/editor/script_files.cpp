#include "editor/script_files.h"

#include <array>

namespace velmora {

ScriptType scriptTypeOf(const QString& path) {
    struct Ending final {
        const char16_t* letters;
        ScriptType type;
    };
    static constexpr std::array endings = {
        Ending{u"RTF", ScriptType::Rtf}, Ending{u"TXT", ScriptType::PlainText},
        Ending{u"DOC", ScriptType::Doc}, Ending{u"DOCX", ScriptType::Docx}};
    for (const Ending& ending : endings) {
        if (path.endsWith(QStringView(ending.letters), Qt::CaseInsensitive)) {
            return ending.type;
        }
    }
    return ScriptType::PlainText;
}

bool needsConverter(ScriptType type) {
    return type != ScriptType::Rtf && type != ScriptType::PlainText;
}

QString folderOfScript(const QString& path) {
    return path.left(path.lastIndexOf(u'/') + 1);
}

QString scriptFileBase(const QString& path) {
    const qsizetype nameAt = path.lastIndexOf(u'/') + 1;
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > nameAt ? path.left(dot) : path;
}

} // namespace velmora
