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
    static constexpr std::array endings = {u".rtf", u".txt", u".doc", u".docx", u".odt"};
    const qsizetype nameAt = path.lastIndexOf(u'/') + 1;
    for (const QStringView ending : endings) {
        if (path.endsWith(ending, Qt::CaseInsensitive) && path.size() - ending.size() > nameAt) {
            return path.chopped(ending.size());
        }
    }
    return path;
}

QString withScriptEnding(const QString& path, QStringView ending) {
    return path.endsWith(ending, Qt::CaseInsensitive) ? path
                                                      : scriptFileBase(path) + ending.toString();
}

} // namespace velmora
