// The way of the text: from bytes and symbols over the font's code page to the builder.

#include "platform/rich_text/rtf_interpreter.h"

#include <algorithm>
#include <utility>

namespace velmora {

void RtfInterpreter::symbol(unsigned char byte) {
    switch (byte) {
    case '\n':
        // In a table of the header a writer has only broken its own line.
        if (inBody()) {
            lineEnd({}, 0);
        }
        break;
    case '~':
        put(QChar::Nbsp);
        break;
    case '-':
        put(QChar::SoftHyphen);
        break;
    case '_':
        put(0x2011);
        break;
    case '\\':
    case '{':
    case '}':
    case ' ':
    case '\t': {
        const char text = static_cast<char>(byte);
        asciiText(std::string_view(&text, 1));
        break;
    }
    default:
        if (byte >= 0x80) {
            // An unescaped backslash as the second byte of a character, then the next one.
            if (!m_halfCharacter.empty()) {
                this->byte('\\');
            }
            this->byte(byte);
        }
        break;
    }
}

void RtfInterpreter::asciiText(std::string_view text) {
    switch (m_group.destination) {
    case RtfDestination::Body:
        bodyText(text);
        break;
    case RtfDestination::FontTable:
        std::for_each(text.begin(), text.end(),
                      [this](char c) { decode(static_cast<unsigned char>(c)); });
        break;
    case RtfDestination::ColorTable:
        for (auto rows = std::count(text.begin(), text.end(), ';'); rows > 0; --rows) {
            m_colors.next();
        }
        break;
    case RtfDestination::FieldInstruction:
        std::for_each(text.begin(), text.end(), [this](char c) { put(static_cast<char16_t>(c)); });
        break;
    case RtfDestination::StyleSheet:
    case RtfDestination::Alternatives:
    case RtfDestination::Alternative:
        break;
    }
}

void RtfInterpreter::bodyText(std::string_view text) {
    if (isHidden()) {
        return;
    }
    refreshFormat();
    while (!m_halfCharacter.empty() && !text.empty()) {
        decode(static_cast<unsigned char>(text.front()));
        text.remove_prefix(1);
    }
    if (m_run.symbols != SymbolSet::None) {
        std::for_each(text.begin(), text.end(),
                      [this](char c) { decode(static_cast<unsigned char>(c)); });
        return;
    }
    const QLatin1StringView latin(text.data(), static_cast<qsizetype>(text.size()));
    if (m_group.formats.character.capitals) {
        const QByteArray capitals = QByteArray(latin.data(), latin.size()).toUpper();
        m_builder.appendAscii(QLatin1StringView(capitals));
    } else {
        m_builder.appendAscii(latin);
    }
}

void RtfInterpreter::highBytes(std::string_view bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (m_utf8Mark && view.isValidUtf8()) {
        for (const QChar unit : QString::fromUtf8(view)) {
            put(unit.unicode());
        }
        return;
    }
    std::for_each(bytes.begin(), bytes.end(),
                  [this](char c) { byte(static_cast<unsigned char>(c)); });
}

void RtfInterpreter::byte(unsigned char byte) {
    const bool decoded = inBody() || m_group.destination == RtfDestination::FontTable ||
                         m_group.destination == RtfDestination::FieldInstruction;
    if (byte < 0x80 && !decoded) {
        const char text = static_cast<char>(byte);
        asciiText(std::string_view(&text, 1));
    } else if (decoded) {
        decode(byte);
    }
}

void RtfInterpreter::decode(unsigned char byte) {
    CodePage* page = nullptr;
    if (inBody()) {
        refreshFormat();
        if (m_run.symbols != SymbolSet::None) {
            putSign(byte);
            return;
        }
        page = m_run.codePage;
    } else if (m_group.destination == RtfDestination::FontTable) {
        page = codePage(m_fonts.nameCodePage());
    } else {
        page = codePage(m_fonts.font(m_group.formats.character.font).codePage);
    }
    if (!m_halfCharacter.empty() && m_halfCharacterPage == page && page->isTrail(byte)) {
        m_halfCharacter.push_back(static_cast<char>(byte));
        const auto first = static_cast<unsigned char>(m_halfCharacter.front());
        if (static_cast<int>(m_halfCharacter.size()) == page->sequenceLength(first)) {
            page->sequence(std::exchange(m_halfCharacter, {}), [this](char16_t u) { put(u); });
        }
        return;
    }
    dropHalfCharacter();
    if (page->sequenceLength(byte) > 1) {
        m_halfCharacter.assign(1, static_cast<char>(byte));
        m_halfCharacterPage = page;
        return;
    }
    put(page->single(byte));
}

void RtfInterpreter::put(char16_t unit) {
    if (m_group.destination == RtfDestination::FontTable) {
        m_fonts.append(QChar(unit));
    } else if (m_group.destination == RtfDestination::FieldInstruction &&
               m_instruction.size() < MaxInstructionUnits) {
        m_instruction.append(QChar(unit));
    }
    if (!inBody() || isHidden()) {
        return;
    }
    dropHalfCharacter();
    refreshFormat();
    if (!m_group.formats.character.capitals) {
        m_builder.append(unit);
        return;
    }
    for (const QChar capital : QString(QChar(unit)).toUpper()) {
        m_builder.append(capital.unicode());
    }
}

void RtfInterpreter::putSign(unsigned char byte) {
    // In a font for text these are what a list's bullets are written as: signs of Symbol.
    const SymbolSet set = m_run.symbols == SymbolSet::None ? SymbolSet::Symbol : m_run.symbols;
    const char16_t sign = symbolCharacter(set, byte);
    const bool onlyInItsFont = m_run.hasSigns() && sign >= 0xF000 && sign <= 0xF0FF;
    if (!onlyInItsFont || isHidden()) {
        put(sign);
        return;
    }
    dropHalfCharacter();
    m_builder.setFormat(formatIn(m_fonts.font(m_run.character.font).name));
    m_builder.append(sign);
    m_run.codePage = nullptr;
    m_formatStale = true;
}

/// A lead byte that no other one follows was meant as a character of its own, whatever the font
/// says: bullets are written so.
void RtfInterpreter::dropHalfCharacter() {
    if (m_halfCharacter.empty()) {
        return;
    }
    const auto lead = static_cast<unsigned char>(std::exchange(m_halfCharacter, {}).front());
    put(m_halfCharacterPage->isDoubleByte() ? windows1252(lead)
                                            : char16_t(QChar::ReplacementCharacter));
}

CodePage* RtfInterpreter::codePage(int number) {
    return m_codePages.page(number != 0 ? number : m_documentCodePage);
}

void RtfInterpreter::refreshFormat() {
    if (!m_formatStale) {
        return;
    }
    m_formatStale = false;
    const RtfCharacter& character = m_group.formats.character;
    if (m_run.codePage && m_run.character == character && m_run.textFont == m_group.textFont) {
        return;
    }
    const RtfFont& font = m_fonts.font(character.font);
    m_run = {character, codePage(font.codePage), font.symbols, m_group.textFont};
    m_builder.setFormat(formatIn(
        m_run.hasSigns() ? m_fonts.font(m_fonts.textFont(m_run.textFont)).name : font.name));
}

CharacterFormat RtfInterpreter::formatIn(const QString& fontName) const {
    const RtfCharacter& character = m_group.formats.character;
    CharacterFormat format;
    format.fontName = fontName;
    format.halfPoints = character.halfPoints;
    format.color = character.color;
    format.backColor = character.highlight != 0 ? character.highlight : character.shading;
    format.bold = character.bold;
    format.italic = character.italic;
    format.underline = character.underline;
    format.strikeThrough = character.strike || character.doubleStrike;
    return format;
}

} // namespace velmora
