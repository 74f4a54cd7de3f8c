#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <string_view>

namespace velmora {

enum class RtfTokenKind : std::uint8_t {
    GroupStart,
    GroupEnd,
    /// A control word; RtfToken::text is its name without the backslash.
    Word,
    /// A control symbol; RtfToken::byte is the character behind the backslash. An escaped line
    /// end, whichever of CR, LF and CR LF it is, comes as '\n'; a damaged \'xx as an apostrophe.
    Symbol,
    /// A byte of text written as \'xx.
    Hex,
    /// Text bytes 0x20 to 0x7E and tabs.
    Text,
    /// Text bytes from 0x80 up, as they stand in the file.
    HighBytes,
    /// The data of a \bin.
    Binary,
    End,
};

struct RtfToken final {
    RtfTokenKind kind = RtfTokenKind::End;
    unsigned char byte = 0;
    bool hasParameter = false;
    /// Of a control word, saturated to the range of int; 0 where hasParameter is false.
    int parameter = 0;
    /// Points into the tokenizer's input.
    std::string_view text;
};

/// Cuts RTF into tokens without copying. Line ends, NUL and other control characters between tokens
/// are left out, as RTF demands. Every call moves forward, so reading ends whatever the input is.
class RtfTokenizer final {
public:
    /// The input must outlive the tokenizer and its tokens.
    explicit RtfTokenizer(QByteArrayView input);

    [[nodiscard]] RtfToken next();
    /// 0 at the input's beginning, 1 at its end.
    [[nodiscard]] double shareRead() const {
        return static_cast<double>(m_at - m_begin) / static_cast<double>(m_end - m_begin + 1);
    }

    /// Moves in front of the brace that closes the group in which the next token stands, or to the
    /// end of the input. Data of \bin may hold any braces and is stepped over as a whole.
    /// Returns how many groups the end of the input left open, that one included: 0 where its brace
    /// was found.
    int skipGroup();

    /// Moves in front of the first \par or \pard that stands in less than so many groups within the
    /// one of the next token, or in front of the group that begins with it, and says whether there
    /// is one. Does not move where there is none.
    [[nodiscard]] bool skipToParagraph(int groups);

    /// How many closing braces there are from here to the end of the input; -1 where anything but
    /// braces, blanks and line ends is still to come.
    [[nodiscard]] int closingsToTheEnd() const;

    /// How many braces from here to the end close a group that was never opened, when the group in
    /// which the next token stands is not counted.
    [[nodiscard]] int unmatchedClosings() const;

    /// The bytes from here to where another tokenizer of the same input stands, which is not
    /// before.
    [[nodiscard]] QByteArrayView bytesTo(const RtfTokenizer& later) const {
        return {m_at, later.m_at};
    }

private:
    RtfToken control();
    RtfToken controlWord();
    RtfToken hex();
    RtfToken run(RtfTokenKind kind, std::uint8_t byteClass);
    void readParameter(RtfToken& word);
    [[nodiscard]] bool atDigit(qsizetype offset) const;

    const char* m_begin;
    const char* m_at;
    const char* m_end;
};

} // namespace velmora
