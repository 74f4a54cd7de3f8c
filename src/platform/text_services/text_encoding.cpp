#include "platform/text_services/text_encoding.h"

#include <QStringDecoder>
#include <QStringView>

#include <array>
#include <cstddef>

namespace velmora {

namespace {

constexpr QByteArrayView Utf8Mark = "\xEF\xBB\xBF";
constexpr QByteArrayView Utf16LittleMark = "\xFF\xFE";
constexpr QByteArrayView Utf16BigMark = "\xFE\xFF";

/// Windows-1252, bytes 0x80 to 0x9F, as Unicode's mapping table of the code page has them
/// (CP1252.TXT); elsewhere the byte is the character.
constexpr std::array<char16_t, 32> Windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString decodeWith(QStringConverter::Encoding encoding, QByteArrayView bytes, bool* valid) {
    // A mark has been taken off before: a second one is text.
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless |
                                         QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    if (valid != nullptr) {
        *valid = !decoder.hasError();
    }
    return text;
}

/// The byte of a character in Windows-1252, or -1.
int windows1252Byte(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return character;
    }
    for (std::size_t i = 0; i < Windows1252High.size(); ++i) {
        if (Windows1252High[i] == character) {
            return static_cast<int>(0x80 + i);
        }
    }
    return -1;
}

} // namespace

char16_t windows1252Character(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? Windows1252High[byte - 0x80U] : char16_t{byte};
}

QString decodeWindows1252(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        *out++ = QChar(windows1252Character(static_cast<unsigned char>(byte)));
    }
    return text;
}

QString decodeText(QByteArrayView bytes) {
    if (bytes.startsWith(Utf8Mark)) {
        return decodeWith(QStringConverter::Utf8, bytes.sliced(Utf8Mark.size()), nullptr);
    }
    if (bytes.startsWith(Utf16LittleMark)) {
        return decodeWith(QStringConverter::Utf16LE, bytes.sliced(2), nullptr);
    }
    if (bytes.startsWith(Utf16BigMark)) {
        return decodeWith(QStringConverter::Utf16BE, bytes.sliced(2), nullptr);
    }
    bool valid = false;
    const QString text = decodeWith(QStringConverter::Utf8, bytes, &valid);
    return valid ? text : decodeWindows1252(bytes);
}

QByteArray encodeText(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const int byte = windows1252Byte(character.unicode());
        if (byte < 0) {
            return Utf8Mark.toByteArray() + text.toUtf8();
        }
        bytes.append(static_cast<char>(byte));
    }
    // A few texts, such as "Ã©", have bytes that also make sense in another encoding.
    return decodeText(bytes) == text ? bytes : Utf8Mark.toByteArray() + text.toUtf8();
}

} // namespace velmora
