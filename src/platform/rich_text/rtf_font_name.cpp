#include "platform/rich_text/rtf_font_name.h"

namespace velmora {

QString rtfFontName(const QString& name) {
    QString result = name.left(MaxFontNameUnits).simplified();
    const bool whole = QStringView(result).isValidUtf16();
    result.removeIf([whole](QChar unit) {
        const char16_t code = unit.unicode();
        return code == u';' || code < 0x20 || (code >= 0x7F && code < 0xA0) ||
               (!whole && unit.isSurrogate());
    });
    return result.simplified();
}

} // namespace velmora
