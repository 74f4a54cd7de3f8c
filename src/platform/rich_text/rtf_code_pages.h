#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

#include <array>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace velmora {

/// Turns the bytes of one Windows code page into UTF-16, from tables that fill as they are used.
/// A code page that the machine's converters do not know is read as Windows-1252.
class CodePage final {
public:
    explicit CodePage(int number);

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isDoubleByte() const { return m_kind == Kind::DoubleByte; }
    /// How many bytes the character takes that begins with this byte: 1, 2, or up to 4 in UTF-8.
    [[nodiscard]] int sequenceLength(unsigned char first) const;
    /// Whether the byte can stand behind the first one of a longer character.
    [[nodiscard]] bool isTrail(unsigned char byte) const;
    /// A character of one byte; U+FFFD for a byte that stands for nothing.
    [[nodiscard]] char16_t single(unsigned char byte);
    /// Hands over the UTF-16 of a character of several bytes, as sequenceLength() and isTrail()
    /// allow it: one unit or two; U+FFFD for a sequence that stands for nothing.
    template<typename Take> void sequence(std::string_view bytes, Take take) {
        if (m_kind == Kind::DoubleByte) {
            take(pair(static_cast<unsigned char>(bytes[0]), static_cast<unsigned char>(bytes[1])));
            return;
        }
        for (const QChar unit : QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()))) {
            take(unit.unicode());
        }
    }

private:
    void fillUpper();
    void openConverter();
    char16_t pair(unsigned char first, unsigned char second);
    /// One character; U+FFFD where the converter knows none.
    char16_t convert(QByteArrayView bytes);

    enum class Kind { SingleByte, DoubleByte, Utf8 };

    int m_number;
    Kind m_kind = Kind::SingleByte;
    /// Opened once it is needed and kept: opening one costs far more than using it.
    QStringDecoder m_converter;
    const char* m_converterName = nullptr;
    /// Of the bytes from 0x80 up, which are asked for together: most texts need none of them.
    std::array<char16_t, 128> m_upper{};
    bool m_upperKnown = false;
    /// Of a double-byte code page: both bytes to the character, 0 where not yet asked for.
    std::vector<char16_t> m_pairs;
};

/// The code pages that one document uses, each made once.
class CodePages final {
public:
    /// Never null; the same object for the same number, for the life of this one.
    [[nodiscard]] CodePage* page(int number);

    /// The code page of a font's \fcharset; 0 where the charset names none, as the default charset
    /// and the symbol charset do.
    [[nodiscard]] static int ofCharset(int charset);

    static constexpr int Windows1252 = 1252;
    static constexpr int SymbolCharset = 2;

private:
    std::map<int, std::unique_ptr<CodePage>> m_pages;
};

/// What Windows-1252 has at a byte of 0x80 to 0x9F; 0 for the five bytes it leaves free.
[[nodiscard]] char16_t windows1252(unsigned char byte);

} // namespace velmora
