#include "platform/rich_text/rtf_tokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace velmora {

namespace {

enum ByteClass : std::uint8_t { Structural, Dropped, Plain, High };

constexpr std::array<std::uint8_t, 256> byteClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        classes[byte] = byte >= 0x80 ? High : byte >= 0x20 ? Plain : Dropped;
    }
    classes['\t'] = Plain;
    classes[0x7F] = Dropped;
    classes['\\'] = classes['{'] = classes['}'] = Structural;
    return classes;
}

constexpr std::array<std::uint8_t, 256> Classes = byteClasses();

std::uint8_t classOf(char byte) {
    return Classes[static_cast<unsigned char>(byte)];
}

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

int hexDigit(char byte) {
    if (byte >= '0' && byte <= '9') {
        return byte - '0';
    }
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

RtfTokenizer::RtfTokenizer(QByteArrayView input)
    : m_begin(input.data()), m_at(input.data()), m_end(input.data() + input.size()) {}

RtfToken RtfTokenizer::next() {
    while (m_at < m_end && classOf(*m_at) == Dropped) {
        ++m_at;
    }
    if (m_at >= m_end) {
        return {};
    }
    switch (classOf(*m_at)) {
    case Plain:
        return run(RtfTokenKind::Text, Plain);
    case High:
        return run(RtfTokenKind::HighBytes, High);
    default:
        break;
    }
    const char byte = *m_at++;
    if (byte == '\\') {
        return control();
    }
    RtfToken token;
    token.kind = byte == '{' ? RtfTokenKind::GroupStart : RtfTokenKind::GroupEnd;
    return token;
}

RtfToken RtfTokenizer::run(RtfTokenKind kind, std::uint8_t byteClass) {
    const char* const start = m_at;
    while (m_at < m_end && classOf(*m_at) == byteClass) {
        ++m_at;
    }
    RtfToken token;
    token.kind = kind;
    token.text = std::string_view(start, static_cast<std::size_t>(m_at - start));
    return token;
}

RtfToken RtfTokenizer::control() {
    if (m_at >= m_end) {
        return {};
    }
    if (isLetter(*m_at)) {
        return controlWord();
    }
    if (*m_at == '\'') {
        return hex();
    }
    RtfToken token;
    token.kind = RtfTokenKind::Symbol;
    token.byte = static_cast<unsigned char>(*m_at++);
    if (token.byte == '\r') {
        token.byte = '\n';
        if (m_at < m_end && *m_at == '\n') {
            ++m_at;
        }
    }
    return token;
}

RtfToken RtfTokenizer::hex() {
    ++m_at;
    const int high = m_end - m_at >= 2 ? hexDigit(m_at[0]) : -1;
    const int low = high >= 0 ? hexDigit(m_at[1]) : -1;
    RtfToken token;
    if (low < 0) {
        token.kind = RtfTokenKind::Symbol;
        token.byte = '\'';
        // Half a number has a damaged half beside it, which is no text either.
        const bool half = high >= 0 && (classOf(m_at[1]) == Plain || classOf(m_at[1]) == High);
        m_at += half ? 2 : 0;
        return token;
    }
    m_at += 2;
    token.kind = RtfTokenKind::Hex;
    token.byte = static_cast<unsigned char>(high * 16 + low);
    return token;
}

bool RtfTokenizer::atDigit(qsizetype offset) const {
    return m_end - m_at > offset && m_at[offset] >= '0' && m_at[offset] <= '9';
}

void RtfTokenizer::readParameter(RtfToken& word) {
    const bool negative = m_at < m_end && *m_at == '-' && atDigit(1);
    if (!negative && !atDigit(0)) {
        return;
    }
    m_at += negative ? 1 : 0;
    std::int64_t value = 0;
    for (; atDigit(0); ++m_at) {
        value = std::min<std::int64_t>(value * 10 + (*m_at - '0'), std::numeric_limits<int>::max());
    }
    word.hasParameter = true;
    word.parameter = static_cast<int>(negative ? -value : value);
}

RtfToken RtfTokenizer::controlWord() {
    const char* const start = m_at;
    while (m_at < m_end && isLetter(*m_at)) {
        ++m_at;
    }
    RtfToken token;
    token.kind = RtfTokenKind::Word;
    token.text = std::string_view(start, static_cast<std::size_t>(m_at - start));
    readParameter(token);
    if (m_at < m_end && *m_at == ' ') {
        ++m_at;
    }
    if (token.text == "bin") {
        const qsizetype size = std::clamp<qsizetype>(token.parameter, 0, m_end - m_at);
        token.kind = RtfTokenKind::Binary;
        token.text = std::string_view(m_at, static_cast<std::size_t>(size));
        m_at += size;
    }
    return token;
}

int RtfTokenizer::skipGroup() {
    int depth = 0;
    while (m_at < m_end) {
        const char* const before = m_at;
        const char byte = *m_at++;
        if (byte == '\\') {
            (void)control();
        } else if (byte == '{') {
            ++depth;
        } else if (byte == '}' && depth-- == 0) {
            m_at = before;
            return 0;
        }
    }
    return depth + 1;
}

bool RtfTokenizer::skipToParagraph(int groups) {
    RtfTokenizer ahead = *this;
    const char* groupStart = nullptr; // while nothing has come since
    int depth = 0;
    while (ahead.m_at < ahead.m_end && depth >= 0) {
        const char* const before = ahead.m_at;
        const char byte = *ahead.m_at++;
        if (byte == '{') {
            groupStart = before;
            ++depth;
            continue;
        }
        if (byte == '\\') {
            const RtfToken token = ahead.control();
            const bool paragraph =
                token.kind == RtfTokenKind::Word && (token.text == "par" || token.text == "pard");
            // The group of a paragraph is one deeper than the paragraph.
            if (paragraph && depth < groups + (groupStart ? 1 : 0)) {
                m_at = groupStart ? groupStart : before;
                return true;
            }
        } else if (byte == '}') {
            --depth;
        }
        groupStart = classOf(byte) == Dropped ? groupStart : nullptr;
    }
    return false;
}

int RtfTokenizer::closingsToTheEnd() const {
    int closings = 0;
    for (const char* at = m_at; at < m_end; ++at) {
        if (*at == '}') {
            ++closings;
        } else if (*at != ' ' && classOf(*at) != Dropped) {
            return -1;
        }
    }
    return closings;
}

int RtfTokenizer::unmatchedClosings() const {
    RtfTokenizer ahead = *this;
    int count = 0;
    for (ahead.skipGroup(); ahead.m_at < ahead.m_end; ahead.skipGroup()) {
        ++ahead.m_at;
        ++count;
    }
    return count;
}

} // namespace velmora
