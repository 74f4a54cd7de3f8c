#include "platform/rich_text/rtf_fragment_builder.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rtf_code_pages.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

/// What a document can hold in place of a unit; 0 where it can hold nothing.
char16_t storable(char16_t unit) {
    if (unit >= 0x20 && unit < 0x7F) {
        return unit;
    }
    if (unit < 0x20) {
        const bool lineEnd = unit >= 0x0A && unit <= 0x0D;
        return lineEnd ? char16_t(QChar::LineSeparator) : unit == u'\t' ? unit : u'\0';
    }
    if (unit < 0xA0) {
        // A writer that took the bytes of Windows-1252 for Unicode.
        return unit == 0x7F ? u'\0' : windows1252(static_cast<unsigned char>(unit));
    }
    // The document keeps some of these as marks of its own.
    const bool nonCharacter = (unit >= 0xFDD0 && unit <= 0xFDEF) || unit >= 0xFFFE;
    return nonCharacter || unit == QChar::ObjectReplacementCharacter ? u'\0' : unit;
}

} // namespace

void RtfFragmentBuilder::setFormat(const CharacterFormat& format) {
    if (m_format >= 0 && m_fragment.formats[static_cast<std::size_t>(m_format)] == format) {
        return;
    }
    if (m_highSurrogate != 0) {
        beforeText();
    }
    const auto known = m_formatIndex.constFind(format);
    if (known != m_formatIndex.constEnd()) {
        m_format = *known;
        m_halfPoints = format.halfPoints;
        return;
    }
    if (m_fragment.formats.size() >= MaxFormats) {
        ++m_formatsLeftOut;
        return;
    }
    m_format = static_cast<int>(m_fragment.formats.size());
    m_fragment.formats.push_back(format);
    m_memory.addFormat();
    m_halfPoints = format.halfPoints;
    m_formatIndex.insert(format, m_format);
}

/// Writes what waits for the text that follows it.
void RtfFragmentBuilder::beforeText() {
    while (m_waitingTabs > 0) {
        --m_waitingTabs;
        m_text.append(u'\t');
        grow(1);
    }
    if (m_highSurrogate != 0) {
        m_highSurrogate = 0;
        m_text.append(QChar::ReplacementCharacter);
        grow(1);
    }
}

/// Accounts for units that were appended to the text in the current format.
void RtfFragmentBuilder::grow(qsizetype length) {
    if (!m_runs.empty() && m_runs.back().format == m_format) {
        m_runs.back().length += static_cast<int>(length);
    } else if (m_runCount < MaxRuns) {
        m_runs.push_back({static_cast<int>(length), m_format});
        ++m_runCount;
        m_memory.addRun();
    } else {
        m_full = true;
    }
    m_textUnits += length;
    m_memory.addUnits(length, m_halfPoints);
    m_full = m_full || m_textUnits > MaxTextUnits;
}

void RtfFragmentBuilder::appendAscii(QLatin1StringView text) {
    if (text.isEmpty()) {
        return;
    }
    beforeText();
    m_text.append(text);
    grow(text.size());
}

void RtfFragmentBuilder::append(char16_t unit) {
    if (QChar::isHighSurrogate(unit)) {
        beforeText();
        m_highSurrogate = unit;
        return;
    }
    if (QChar::isLowSurrogate(unit)) {
        const char16_t high = std::exchange(m_highSurrogate, u'\0');
        beforeText();
        appendCodePoint(high, unit);
        return;
    }
    const char16_t stored = storable(unit);
    if (stored != 0) {
        beforeText();
        m_text.append(QChar(stored));
        grow(1);
    }
}

void RtfFragmentBuilder::appendCodePoint(char16_t high, char16_t low) {
    if (high == 0) {
        m_text.append(QChar::ReplacementCharacter);
        grow(1);
    } else if ((QChar::surrogateToUcs4(high, low) & 0xFFFE) != 0xFFFE) { // else a noncharacter
        m_text.append(QChar(high));
        m_text.append(QChar(low));
        grow(2);
    }
}

bool RtfFragmentBuilder::beginLabel() {
    return !std::exchange(m_labelSeen, true);
}

void RtfFragmentBuilder::endParagraph(const ParagraphFormat& format) {
    if (static_cast<qsizetype>(m_fragment.paragraphs.size()) + 1 >= MaxParagraphs) {
        m_full = true;
        return;
    }
    closeParagraph(format);
    m_inRow = false; // the row's next line takes the format of the next cell
}

void RtfFragmentBuilder::endCell(const ParagraphFormat& format) {
    if (!m_inRow) {
        m_inRow = true;
        m_rowFormat = format;
    }
    m_waitingTabs = std::min(m_waitingTabs + 1, MaxWaitingTabs);
    m_labelSeen = false;
}

void RtfFragmentBuilder::endRow(const ParagraphFormat& format) {
    m_waitingTabs = 0;
    endParagraph(m_inRow ? m_rowFormat : format);
}

void RtfFragmentBuilder::closeParagraph(const ParagraphFormat& format) {
    if (m_highSurrogate != 0) {
        beforeText();
    }
    m_memory.addParagraphs(1);
    Paragraph& paragraph = m_fragment.paragraphs.emplace_back();
    // Copies of the exact size: the buffers keep their room for the next paragraph.
    paragraph.text = QString(m_text.constData(), m_text.size());
    paragraph.runs.assign(m_runs.begin(), m_runs.end());
    paragraph.endFormat = m_format;
    paragraph.format = format;
    if (isRightToLeft(format.direction, paragraph.text) == paragraph.text.isRightToLeft()) {
        // Nothing but what the text tells: it may turn when the text does.
        paragraph.format.direction = Direction::FromText;
    }
    m_text.resize(0);
    m_runs.clear();
    m_labelSeen = false;
}

Outcome RtfFragmentBuilder::failure() const {
    return m_full ? Outcome::failure(
                        QStringLiteral("The text is too long or changes its format too often."))
                  : m_memory.failure();
}

RichTextFragment RtfFragmentBuilder::take(const ParagraphFormat& format) {
    m_waitingTabs = 0;
    closeParagraph(format);
    return std::move(m_fragment);
}

} // namespace velmora
