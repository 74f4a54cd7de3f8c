#include "platform/rich_text/rtf_symbol_field.h"

#include "platform/rich_text/rtf_code_pages.h"
#include "platform/rich_text/rtf_symbol_fonts.h"

#include <QString>

#include <algorithm>

namespace velmora {

char16_t symbolOfField(const QString& instruction) {
    const QString text = instruction.simplified();
    if (!text.startsWith(QLatin1StringView("SYMBOL "), Qt::CaseInsensitive)) {
        return 0;
    }
    const QString number = text.section(u' ', 1, 1);
    const bool hexadecimal = number.startsWith(QLatin1StringView("0x"), Qt::CaseInsensitive);
    const uint code = hexadecimal ? number.mid(2).toUInt(nullptr, 16) : number.toUInt();
    const bool addressesFont = code >= 0xF020 && code <= 0xF0FF;
    if (code < 0x20 || (code > 0xFF && !addressesFont)) {
        return code < 0x20 || code > 0xFFFF ? u'\0' : static_cast<char16_t>(code);
    }
    const auto byte = static_cast<unsigned char>(code & 0xFF);
    const qsizetype quote = text.indexOf(QLatin1StringView("\\f \""));
    if (quote >= 0) {
        const QString font = text.mid(quote + 4).section(u'"', 0, 0);
        return symbolCharacter(symbolSetOfFont(font), byte);
    }
    return byte >= 0x80 && byte < 0xA0 ? windows1252(byte) : byte;
}

QString equationText(const QString& instruction) {
    const QString text = instruction.simplified();
    if (!text.startsWith(QLatin1StringView("EQ "), Qt::CaseInsensitive)) {
        return QString();
    }
    // What stands in brackets is shown, what stands before them are switches.
    QString shown;
    int depth = 0;
    for (qsizetype at = 3; at < text.size(); ++at) {
        const QChar unit = text[at];
        if (unit == u'\\' && at + 1 < text.size()) {
            const QChar escaped = text[++at];
            if (escaped.isLetter() || escaped == u'*') {
                at = std::max(at, text.indexOf(u'(', at) - 1);
            } else if (depth > 0) {
                shown += escaped;
            }
        } else if (unit == u'(') {
            ++depth;
        } else if (unit == u')') {
            depth = std::max(0, depth - 1);
        } else if (depth > 0) {
            shown += unit == u',' || unit == u';' ? u' ' : unit;
        }
    }
    return shown.simplified();
}

QString textOfField(const QString& instruction) {
    const char16_t sign = symbolOfField(instruction);
    return sign != 0 ? QString(QChar(sign)) : equationText(instruction);
}

} // namespace velmora
