// The way of the text: from bytes and symbols over the font's code page to the builder.

#include "platform/rich_text/rtf_interpreter.h"

#include <algorithm>
#include <utility>

namespace velmora {

void RtfInterpreter::symbol(unsigned char byte) {
    switch (byte) {
    case '\n':
        lineEnd({}, 0);
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
        m_instruction.append(text.substr(0, MaxInstructionBytes - m_instruction.size()));
        break;
    case RtfDestination::StyleSheet:
    case RtfDestination::Alternatives:
    case RtfDestination::Alternative:
    case RtfDestination::Silent:
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
    m_builder.appendAscii(QLatin1StringView(text.data(), static_cast<qsizetype>(text.size())));
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
    const bool decoded = inBody() || m_group.destination == RtfDestination::FontTable;
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
    } else {
        page = codePage(m_fonts.nameCodePage());
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
    }
    if (!inBody() || isHidden()) {
        return;
    }
    dropHalfCharacter();
    refreshFormat();
    m_builder.append(unit);
}

void RtfInterpreter::putSign(unsigned char byte) {
    const char16_t sign = symbolCharacter(m_run.symbols, byte);
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

void RtfInterpreter::dropHalfCharacter() {
    if (!m_halfCharacter.empty()) {
        m_halfCharacter.clear();
        put(QChar::ReplacementCharacter);
    }
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
