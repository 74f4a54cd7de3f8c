// The handlers of the control words: RtfInterpreter's members that its table names.

#include "platform/rich_text/rtf_interpreter.h"
#include "platform/rich_text/rtf_omissions.h"

#include <algorithm>
#include <utility>

namespace velmora {

void RtfInterpreter::character(const RtfToken&, int unit) {
    put(static_cast<char16_t>(unit));
}

void RtfInterpreter::unicode(const RtfToken& token, int) {
    m_unitsToSkip = m_group.unicodeSkip;
    // Numbers are signed and of 16 bits; some writers give a whole code point.
    const int value = token.parameter < 0 ? token.parameter + 0x10000 : token.parameter;
    if (value < 0 || value > 0x10FFFF) {
        put(QChar::ReplacementCharacter);
    } else if (value > 0xFFFF) {
        put(QChar::highSurrogate(static_cast<char32_t>(value)));
        put(QChar::lowSurrogate(static_cast<char32_t>(value)));
    } else if (value == QChar::ParagraphSeparator) {
        lineEnd(token, 0);
    } else if (value >= 0xF020 && value <= 0xF0FF && inBody()) {
        refreshFormat();
        putSign(static_cast<unsigned char>(value & 0xFF));
    } else {
        put(static_cast<char16_t>(value));
    }
}

void RtfInterpreter::setUnicodeSkip(const RtfToken& token, int) {
    const int count = token.hasParameter ? token.parameter : 1;
    m_group.unicodeSkip = static_cast<std::uint8_t>(std::clamp(count, 0, 255));
}

void RtfInterpreter::lineEnd(const RtfToken&, int) {
    leaveUnclosedTable(true);
    if (!inBody() || isHidden()) {
        return;
    }
    dropHalfCharacter();
    refreshFormat();
    m_builder.endParagraph(m_group.formats.paragraph);
}

void RtfInterpreter::breakLine(const RtfToken& token, int) {
    if (!m_builder.atParagraphStart()) {
        lineEnd(token, 0);
    }
}

void RtfInterpreter::cellEnd(const RtfToken&, int) {
    if (inBody()) {
        dropHalfCharacter();
        m_builder.endCell(m_group.formats.paragraph);
    }
}

void RtfInterpreter::rowEnd(const RtfToken&, int) {
    if (inBody()) {
        dropHalfCharacter();
        refreshFormat();
        m_builder.endRow(m_group.formats.paragraph);
    }
}

void RtfInterpreter::endUnderline(const RtfToken&, int) {
    m_group.formats.character.underline = false;
    given(PropertyUnderline);
}

void RtfInterpreter::setDeleted(const RtfToken& token, int) {
    m_group.formats.character.deleted = isOn(token);
    m_formatStale = true;
}

void RtfInterpreter::plain(const RtfToken&, int) {
    m_group.formats.character = {};
    m_group.textFont = RtfCharacter::DefaultFont;
    m_formatStale = true;
}

void RtfInterpreter::setFont(const RtfToken& token, int) {
    if (m_group.destination == RtfDestination::FontTable) {
        m_fonts.begin(token.parameter);
        return;
    }
    m_group.formats.character.font = m_fonts.find(token.parameter);
    rememberTextFont();
    given(PropertyFont);
}

void RtfInterpreter::rememberTextFont() {
    const int font = m_group.formats.character.font;
    if (m_fonts.font(font).symbols == SymbolSet::None) {
        m_group.textFont = font;
    }
}

void RtfInterpreter::setSize(const RtfToken& token, int) {
    const int halfPoints = token.parameter > 0 ? token.parameter : RtfCharacter::DefaultHalfPoints;
    m_group.formats.character.halfPoints =
        std::clamp(halfPoints, CharacterFormat::MinHalfPoints, CharacterFormat::MaxHalfPoints);
    given(PropertySize);
}

void RtfInterpreter::setColor(const RtfToken& token, int) {
    m_group.formats.character.color = m_colors.color(token.parameter);
    given(PropertyColor);
}

void RtfInterpreter::setHighlight(const RtfToken& token, int) {
    m_group.formats.character.highlight = m_colors.color(token.parameter);
    given(PropertyHighlight);
}

void RtfInterpreter::setShading(const RtfToken& token, int) {
    m_group.formats.character.shading = m_colors.color(token.parameter);
    given(PropertyShading);
}

void RtfInterpreter::resetParagraph(const RtfToken&, int) {
    // A style may have a \pard; the style sheet itself, behind its styles, has none.
    leaveUnclosedTable(m_group.ownsDestination && !m_styles.isEmpty());
    m_group.formats.paragraph = {};
}

void RtfInterpreter::align(const RtfToken&, int alignment) {
    m_group.formats.paragraph.alignment = static_cast<Alignment>(alignment);
    given(PropertyAlignment);
}

void RtfInterpreter::setDirection(const RtfToken&, int direction) {
    m_group.formats.paragraph.direction = static_cast<Direction>(direction);
    given(PropertyDirection);
}

void RtfInterpreter::setLeftOffset(const RtfToken& token, int) {
    m_group.formats.paragraph.leftOffsetTwips =
        std::clamp(token.parameter, -RtfMaxOffsetTwips, RtfMaxOffsetTwips);
    given(PropertyLeftOffset);
}

void RtfInterpreter::setFirstLineOffset(const RtfToken& token, int) {
    m_group.formats.paragraph.firstLineOffsetTwips =
        std::clamp(token.parameter, -RtfMaxOffsetTwips, RtfMaxOffsetTwips);
    given(PropertyFirstLineOffset);
}

void RtfInterpreter::setDocumentCodePage(const RtfToken&, int codePage) {
    if (!m_ansiCodePageGiven) {
        m_documentCodePage = codePage;
        m_run.codePage = nullptr;
        m_formatStale = true;
    }
}

void RtfInterpreter::setAnsiCodePage(const RtfToken& token, int) {
    if (token.parameter > 0) {
        m_ansiCodePageGiven = true;
        m_documentCodePage = token.parameter;
        m_run.codePage = nullptr;
        m_formatStale = true;
    }
}

void RtfInterpreter::setDefaultFont(const RtfToken& token, int) {
    m_fonts.setDefault(token.parameter);
    m_run.codePage = nullptr;
    m_formatStale = true;
}

void RtfInterpreter::setFontCharset(const RtfToken& token, int) {
    if (m_group.destination == RtfDestination::FontTable) {
        m_fonts.setCharset(token.parameter);
    }
}

void RtfInterpreter::setFontCodePage(const RtfToken& token, int) {
    if (m_group.destination == RtfDestination::FontTable) {
        m_fonts.setCodePage(token.parameter);
    }
}

void RtfInterpreter::setColorComponent(const RtfToken& token, int component) {
    if (m_group.destination == RtfDestination::ColorTable) {
        m_colors.setComponent(component, token.parameter);
    }
}

void RtfInterpreter::style(const RtfToken& token, int kindNumber) {
    const auto kind = static_cast<RtfStyleSheet::Kind>(kindNumber);
    if (m_group.destination == RtfDestination::StyleSheet) {
        m_style.kind = kind;
        m_style.number = token.parameter;
        m_style.numbered = true;
    } else if (const RtfFormats* formats = m_styles.resolved(kind, token.parameter)) {
        m_group.formats.apply(*formats);
        rememberTextFont();
        m_formatStale = true;
    }
}

void RtfInterpreter::otherStyle(const RtfToken&, int) {
    m_style.ofText = false;
}

void RtfInterpreter::setBasedOn(const RtfToken& token, int) {
    m_style.basedOn = token.parameter;
}

void RtfInterpreter::enter(const RtfToken&, int destination) {
    const auto entered = static_cast<RtfDestination>(destination);
    // A table that lost its opening brace is still one; it ends where paragraphs begin.
    const bool table = entered == RtfDestination::FontTable ||
                       entered == RtfDestination::ColorTable ||
                       entered == RtfDestination::StyleSheet;
    if (!table && !m_atGroupStart) {
        return;
    }
    m_group.outer = m_group.destination;
    m_group.destination = entered;
    m_group.ownsDestination = true;
    if (entered == RtfDestination::FieldInstruction) {
        m_instruction.clear();
    }
}

void RtfInterpreter::skip(const RtfToken&, int omission) {
    if (!m_atGroupStart) {
        return;
    }
    const bool shown = inBody() && !isHidden();
    const RtfTokenizer start = m_tokenizer;
    skipGroup();
    if (shown) {
        countOmission(m_omissions, static_cast<RtfOmission>(omission), start.bytesTo(m_tokenizer));
    }
}

/// What an object shows in its place stands behind its data.
void RtfInterpreter::enterObjectResult(const RtfToken&, int) {
    m_omissions.objects = std::max(m_omissions.objects - 1, 0);
}

void RtfInterpreter::skipAttachment(const RtfToken& token, int) {
    m_attachmentBefore = m_atGroupStart;
    skip(token, int(RtfOmission::Picture));
}

void RtfInterpreter::enterUnicodeAlternative(const RtfToken&, int) {
    if (m_group.destination == RtfDestination::Alternative) {
        m_group.destination = m_group.outer;
    }
}

void RtfInterpreter::enterLabel(const RtfToken& token, int) {
    if (inBody() && !m_builder.beginLabel()) {
        skip(token, 0);
    }
}

void RtfInterpreter::beginField(const RtfToken&, int) {
    m_resultReplaced = false;
}

void RtfInterpreter::enterFieldResult(const RtfToken& token, int) {
    if (std::exchange(m_resultReplaced, false)) {
        skip(token, 0);
    }
}

} // namespace velmora
