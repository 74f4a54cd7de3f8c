#include "platform/rich_text/rtf_interpreter.h"

#include "platform/rich_text/rtf_control_words.h"
#include "platform/rich_text/rtf_symbol_field.h"

#include <algorithm>
#include <utility>

namespace velmora {

RtfReadResult RtfInterpreter::read(const Progress& goesOn) {
    constexpr unsigned tokensBetweenLooks = 16'384;
    if (!readHeader()) {
        return {{}, Outcome::failure(QStringLiteral("It is not rich text."))};
    }
    for (unsigned tokens = 1; !m_finished && !m_builder.full(); ++tokens) {
        if (goesOn && tokens % tokensBetweenLooks == 0 && !goesOn(m_tokenizer.shareRead())) {
            return {{}, Outcome::failure(QStringLiteral("The reading was stopped."))};
        }
        const RtfToken token = m_tokenizer.next();
        if (token.kind == RtfTokenKind::End) {
            break;
        }
        follow(token);
    }
    if (m_builder.full()) {
        return {{}, m_builder.failure()};
    }
    dropHalfCharacter();
    refreshFormat();
    m_omissions.formats = m_builder.formatsLeftOut();
    return {m_builder.take(m_group.formats.paragraph), Outcome::success(), m_omissions};
}

bool RtfInterpreter::readHeader() {
    RtfToken token = m_tokenizer.next();
    if (token.kind == RtfTokenKind::HighBytes && token.text == "\xEF\xBB\xBF") {
        m_utf8Mark = true;
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
    if (isAttachmentSign(rest) || (m_unitsToSkip > 0 && isReplaced(rest))) {
        return;
    }
    if (isBareStar(rest)) {
        rest.kind = RtfTokenKind::Symbol;
        rest.byte = '*';
    }
    // An alternative shows by its first words whether it is the one to read.
    const bool shown = token.kind == RtfTokenKind::Word || token.kind == RtfTokenKind::Symbol ||
                       token.kind == RtfTokenKind::GroupEnd;
    if (m_group.destination == RtfDestination::Alternative && !shown) {
        if (token.kind == RtfTokenKind::GroupStart) {
            m_tokenizer.skipGroup();
            (void)m_tokenizer.next();
        }
        skipGroup();
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
        highBytes(rest.text);
        break;
    case RtfTokenKind::Binary:
    case RtfTokenKind::End:
        break;
    }
    m_ignorable = rest.kind == RtfTokenKind::Symbol && rest.byte == '*';
    m_atGroupStart = rest.kind == RtfTokenKind::GroupStart || (m_atGroupStart && m_ignorable);
}

bool RtfInterpreter::isAttachmentSign(RtfToken& token) {
    constexpr unsigned char sign = 0xAC;
    if (!m_attachmentBefore || token.kind == RtfTokenKind::GroupEnd) {
        return false;
    }
    m_attachmentBefore = false;
    if (token.kind == RtfTokenKind::HighBytes &&
        static_cast<unsigned char>(token.text.front()) == sign) {
        token.text.remove_prefix(1);
        return token.text.empty();
    }
    return token.kind == RtfTokenKind::Hex && token.byte == sign;
}

bool RtfInterpreter::isBareStar(const RtfToken& token) const {
    if (!m_atGroupStart || token.kind != RtfTokenKind::Text || token.text != "*") {
        return false;
    }
    RtfTokenizer ahead = m_tokenizer;
    const RtfToken word = ahead.next();
    const RtfControlWord* row =
        word.kind == RtfTokenKind::Word ? findRtfControlWord(word.text) : nullptr;
    return row != nullptr && row->handler == &RtfInterpreter::skip;
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
    if (!inBody()) {
        return;
    }
    const QString text = textOfField(m_instruction);
    std::for_each(text.begin(), text.end(), [this](QChar unit) { put(unit.unicode()); });
    m_resultReplaced = m_resultReplaced || !text.isEmpty();
}

void RtfInterpreter::leaveUnclosedTable(bool evenStyleSheet) {
    const auto isTable = [evenStyleSheet](const RtfGroup& group) {
        return group.destination == RtfDestination::FontTable ||
               group.destination == RtfDestination::ColorTable ||
               group.destination == RtfDestination::Alternatives ||
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

void RtfInterpreter::skipGroup() {
    const RtfTokenizer start = m_tokenizer;
    const int open = m_tokenizer.skipGroup();
    const int closings = m_tokenizer.closingsToTheEnd();
    // Every group that is open now, and the document itself, should still be closed.
    const int missing = static_cast<int>(m_outerGroups.size()) + std::max(open, 1) - closings;
    if (closings < 0 || missing <= 0 || m_outerGroups.empty() ||
        m_unclosedSkips >= MaxUnclosedSkips) {
        return;
    }
    RtfTokenizer paragraphs = start;
    if (paragraphs.skipToParagraph(missing)) {
        ++m_unclosedSkips;
        m_tokenizer = paragraphs;
        closeGroup();
    }
}

void RtfInterpreter::word(const RtfToken& token) {
    const RtfControlWord* row = findRtfControlWord(token.text);
    const bool otherAlternative = m_group.destination == RtfDestination::Alternative &&
                                  !(row && row->role == RtfWordRole::Alternative);
    const bool unknownIgnorable = m_ignorable && !(row && row->isKnownIgnorable());
    if (otherAlternative) {
        skipGroup();
    } else if (unknownIgnorable) {
        skip(token, row && row->handler == &RtfInterpreter::skip ? row->value : 0);
    } else if (row) {
        (this->*row->handler)(token, row->value);
    }
}

RtfReadResult readRtf(QByteArrayView rtf, const Progress& goesOn) {
    return RtfInterpreter(rtf).read(goesOn);
}

} // namespace velmora
