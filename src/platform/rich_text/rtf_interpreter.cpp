#include "platform/rich_text/rtf_interpreter.h"

#include "platform/rich_text/rtf_control_words.h"
#include "platform/rich_text/rtf_symbol_field.h"

#include <algorithm>
#include <utility>

namespace velmora {

RtfReadResult RtfInterpreter::read() {
    if (!readHeader()) {
        return {{}, Outcome::failure(QStringLiteral("It is not rich text."))};
    }
    while (!m_finished && !m_builder.full()) {
        const RtfToken token = m_tokenizer.next();
        if (token.kind == RtfTokenKind::End) {
            break;
        }
        follow(token);
    }
    if (m_builder.full()) {
        return {{}, Outcome::failure(QStringLiteral("The text is too long."))};
    }
    dropHalfCharacter();
    refreshFormat();
    return {m_builder.take(m_group.formats.paragraph), Outcome::success()};
}

bool RtfInterpreter::readHeader() {
    RtfToken token = m_tokenizer.next();
    if (token.kind == RtfTokenKind::HighBytes && token.text == "\xEF\xBB\xBF") {
        token = m_tokenizer.next();
    }
    const auto isBlank = [](std::string_view text) {
        return text.find_first_not_of(" \t") == std::string_view::npos;
    };
    while (token.kind == RtfTokenKind::Text && isBlank(token.text)) {
        token = m_tokenizer.next();
    }
    if (token.kind != RtfTokenKind::GroupStart) {
        return false;
    }
    token = m_tokenizer.next();
    return token.kind == RtfTokenKind::Word && (token.text == "rtf" || token.text == "urtf");
}

void RtfInterpreter::follow(const RtfToken& token) {
    RtfToken rest = token;
    if (m_unitsToSkip > 0 && isReplaced(rest)) {
        return;
    }
    // An alternative shows by its first words whether it is the one to read.
    const bool shown = token.kind == RtfTokenKind::Word || token.kind == RtfTokenKind::Symbol ||
                       token.kind == RtfTokenKind::GroupEnd;
    if (m_group.destination == RtfDestination::Alternative && !shown) {
        if (token.kind == RtfTokenKind::GroupStart) {
            m_tokenizer.skipGroup();
            (void)m_tokenizer.next();
        }
        m_tokenizer.skipGroup();
        return;
    }
    switch (rest.kind) {
    case RtfTokenKind::GroupStart:
        openGroup();
        break;
    case RtfTokenKind::GroupEnd:
        closeGroup();
        break;
    case RtfTokenKind::Word:
        word(rest);
        break;
    case RtfTokenKind::Symbol:
        symbol(rest.byte);
        break;
    case RtfTokenKind::Hex:
        byte(rest.byte);
        break;
    case RtfTokenKind::Text:
        asciiText(rest.text);
        break;
    case RtfTokenKind::HighBytes:
        std::for_each(rest.text.begin(), rest.text.end(),
                      [this](char c) { byte(static_cast<unsigned char>(c)); });
        break;
    case RtfTokenKind::Binary:
    case RtfTokenKind::End:
        break;
    }
    m_ignorable = rest.kind == RtfTokenKind::Symbol && rest.byte == '*';
}

bool RtfInterpreter::isReplaced(RtfToken& token) {
    switch (token.kind) {
    case RtfTokenKind::Text:
    case RtfTokenKind::HighBytes: {
        const std::size_t count =
            std::min(token.text.size(), static_cast<std::size_t>(m_unitsToSkip));
        token.text.remove_prefix(count);
        m_unitsToSkip -= static_cast<int>(count);
        return token.text.empty();
    }
    case RtfTokenKind::Symbol:
        if (token.byte == '\n' || token.byte == '*') {
            break;
        }
        --m_unitsToSkip;
        return true;
    case RtfTokenKind::Hex:
    case RtfTokenKind::Binary:
        --m_unitsToSkip;
        return true;
    case RtfTokenKind::Word: {
        // Only words that stand for a character are one; a line end or another \u where the
        // replacement should be tells of a writer that left it out.
        const RtfControlWord* row = findRtfControlWord(token.text);
        if (row && row->role == RtfWordRole::Character) {
            --m_unitsToSkip;
            return true;
        }
        if (!row || row->role == RtfWordRole::Property) {
            return false;
        }
        break;
    }
    default:
        break;
    }
    m_unitsToSkip = 0;
    return false;
}

void RtfInterpreter::openGroup() {
    if (m_outerGroups.size() >= MaxDepth) {
        m_tokenizer.skipGroup();
        (void)m_tokenizer.next();
        return;
    }
    m_outerGroups.push_back(m_group);
    if (m_group.destination == RtfDestination::StyleSheet && m_group.ownsDestination) {
        m_group.formats = {};
        m_style = {};
    } else if (m_group.destination == RtfDestination::Alternatives) {
        m_group.destination = RtfDestination::Alternative;
    }
    m_group.ownsDestination = false;
}

void RtfInterpreter::closeGroup() {
    if (m_outerGroups.empty()) {
        // The end of the document, unless braces that are still to come show that one too many was
        // closed.
        if (m_strayClosings < 0) {
            m_strayClosings = m_tokenizer.unmatchedClosings();
        }
        m_finished = m_strayClosings == 0;
        if (!m_finished) {
            --m_strayClosings;
            m_group = {};
            m_formatStale = true;
        }
        return;
    }
    const RtfGroup closed = std::exchange(m_group, m_outerGroups.back());
    m_outerGroups.pop_back();
    m_formatStale = true;
    endDestination(closed);
}

void RtfInterpreter::endDestination(const RtfGroup& closed) {
    if (closed.destination == RtfDestination::StyleSheet) {
        if (closed.ownsDestination) {
            m_styles.resolve();
        } else if (m_group.ownsDestination) {
            endStyle(closed);
        }
    } else if (closed.ownsDestination && closed.destination == RtfDestination::FontTable) {
        m_fonts.finish();
        m_run.codePage = nullptr;
    } else if (closed.ownsDestination && closed.destination == RtfDestination::FieldInstruction) {
        endFieldInstruction();
    }
}

void RtfInterpreter::endStyle(const RtfGroup& closed) {
    // A row without a number is style 0; one that was passed over gives nothing and is none.
    if (m_style.ofText && (m_style.numbered || closed.formats.given != 0)) {
        m_styles.insert(m_style.kind, m_style.number, {closed.formats, m_style.basedOn});
    }
}

void RtfInterpreter::endFieldInstruction() {
    const char16_t sign = symbolOfField(m_instruction);
    if (sign != 0 && inBody()) {
        put(sign);
        m_resultReplaced = true;
    }
}

void RtfInterpreter::leaveUnclosedTable(bool evenStyleSheet) {
    const auto isTable = [evenStyleSheet](const RtfGroup& group) {
        return group.destination == RtfDestination::FontTable ||
               group.destination == RtfDestination::ColorTable ||
               (evenStyleSheet && group.destination == RtfDestination::StyleSheet);
    };
    if (!isTable(m_group)) {
        return;
    }
    m_group.destination = RtfDestination::Body;
    m_group.ownsDestination = false;
    for (auto group = m_outerGroups.rbegin(); group != m_outerGroups.rend() && isTable(*group);
         ++group) {
        group->destination = RtfDestination::Body;
        group->ownsDestination = false;
    }
    m_fonts.finish();
    m_styles.resolve();
    m_run.codePage = nullptr;
    m_formatStale = true;
}

void RtfInterpreter::word(const RtfToken& token) {
    const RtfControlWord* row = findRtfControlWord(token.text);
    const bool alternative = m_group.destination == RtfDestination::Alternative;
    if (alternative && !(row && row->role == RtfWordRole::Alternative)) {
        m_tokenizer.skipGroup();
    } else if (m_ignorable && !(row && row->isKnownIgnorable())) {
        m_tokenizer.skipGroup();
    } else if (row) {
        (this->*row->handler)(token, row->value);
    }
}

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
    if (m_run.symbolLetters) {
        std::for_each(text.begin(), text.end(),
                      [this](char c) { decode(static_cast<unsigned char>(c)); });
        return;
    }
    m_builder.appendAscii(QLatin1StringView(text.data(), static_cast<qsizetype>(text.size())));
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
        if (m_run.symbols != SymbolSet::None && (byte >= 0x80 || m_run.symbolLetters)) {
            put(symbolCharacter(m_run.symbols, byte));
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
            const QString units = page->sequence(std::exchange(m_halfCharacter, {}));
            std::for_each(units.begin(), units.end(), [this](QChar c) { put(c.unicode()); });
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
    if (m_run.codePage && m_run.character == character) {
        return;
    }
    const RtfFont& font = m_fonts.font(character.font);
    m_run = {character, codePage(font.codePage), font.symbols, font.symbolLetters};
    CharacterFormat format;
    format.fontName = font.name;
    format.halfPoints = character.halfPoints;
    format.color = character.color;
    format.backColor = character.highlight != 0 ? character.highlight : character.shading;
    format.bold = character.bold;
    format.italic = character.italic;
    format.underline = character.underline;
    format.strikeThrough = character.strike || character.doubleStrike;
    m_builder.setFormat(format);
}

RtfReadResult readRtf(QByteArrayView rtf) {
    return RtfInterpreter(rtf).read();
}

} // namespace velmora
