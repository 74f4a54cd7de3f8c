#include "platform/text_services/text_encoding.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace velmora {

namespace {

/// In a text less than one of so many bytes is a control character that no text needs.
constexpr qsizetype MostStrangeShare = 50;

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

QString decodeWithForm(QByteArrayView bytes, TextEncoding& encoding) {
    if (bytes.startsWith(Utf8Mark)) {
        encoding = TextEncoding::Utf8WithMark;
        return decodeWith(QStringConverter::Utf8, bytes.sliced(Utf8Mark.size()), nullptr);
    }
    if (bytes.startsWith(Utf16LittleMark)) {
        encoding = TextEncoding::Utf16LittleWithMark;
        return decodeWith(QStringConverter::Utf16LE, bytes.sliced(2), nullptr);
    }
    if (bytes.startsWith(Utf16BigMark)) {
        encoding = TextEncoding::Utf16BigWithMark;
        return decodeWith(QStringConverter::Utf16BE, bytes.sliced(2), nullptr);
    }
    bool valid = false;
    encoding = TextEncoding::Utf8;
    QString text = decodeWith(QStringConverter::Utf8, bytes, &valid);
    if (!valid) {
        encoding = TextEncoding::Windows1252;
        text = decodeWindows1252(bytes);
    }
    return text;
}

/// The most frequent line end; the system's where there is none.
LineEnd commonLineEnd(QStringView text) {
    const qsizetype pairs = text.count(u"\r\n");
    const qsizetype feeds = text.count(u'\n') - pairs;
    const qsizetype returns = text.count(u'\r') - pairs;
    if (pairs + feeds + returns == 0) {
        return TextForm::systemLineEnd();
    }
    if (pairs >= std::max(feeds, returns)) {
        return LineEnd::CrLf;
    }
    return feeds >= returns ? LineEnd::Lf : LineEnd::Cr;
}

/// What Windows-1252 does not have becomes "?".
QByteArray encodeWindows1252(const QString& text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar character) {
        const int byte = windows1252Byte(character.unicode());
        return static_cast<char>(byte < 0 ? '?' : byte);
    });
    return bytes;
}

QByteArray encodeWith(TextEncoding encoding, const QString& text) {
    const auto utf16 = [&text](QStringConverter::Encoding order) {
        QStringEncoder encoder(order, QStringConverter::Flag::Stateless);
        return QByteArray(encoder(text));
    };
    switch (encoding) {
    case TextEncoding::Windows1252:
        return encodeWindows1252(text);
    case TextEncoding::Utf16LittleWithMark:
        return Utf16LittleMark.toByteArray() + utf16(QStringConverter::Utf16LE);
    case TextEncoding::Utf16BigWithMark:
        return Utf16BigMark.toByteArray() + utf16(QStringConverter::Utf16BE);
    case TextEncoding::Utf8WithMark:
        return Utf8Mark.toByteArray() + text.toUtf8();
    case TextEncoding::Utf8:
        break;
    }
    return text.toUtf8();
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

LineEnd TextForm::systemLineEnd() {
#ifdef Q_OS_WIN
    return LineEnd::CrLf;
#else
    return LineEnd::Lf;
#endif
}

QString decodeText(QByteArrayView bytes, TextForm* form) {
    TextForm found;
    const QString text = decodeWithForm(bytes, found.encoding);
    if (form != nullptr) {
        found.lineEnd = commonLineEnd(text);
        *form = found;
    }
    return text;
}

bool looksLikeText(QByteArrayView bytes) {
    if (bytes.startsWith(Utf8Mark) || bytes.startsWith(Utf16LittleMark) ||
        bytes.startsWith(Utf16BigMark)) {
        return true;
    }
    if (bytes.startsWith("%PDF-") || bytes.contains('\0')) {
        return false;
    }
    // A stray control character is no reason: word processors of old left some.
    const auto strange = std::count_if(bytes.begin(), bytes.end(), [](char byte) {
        return static_cast<unsigned char>(byte) < 0x20 &&
               std::strchr("\t\n\v\f\r\x1A", byte) == nullptr;
    });
    return strange < 2 || strange * MostStrangeShare < bytes.size();
}

QByteArray encodeText(QString text, const TextForm& form) {
    if (form.lineEnd != LineEnd::CrLf) {
        text.replace(QStringLiteral("\r\n"),
                     form.lineEnd == LineEnd::Lf ? QStringLiteral("\n") : QStringLiteral("\r"));
    }
    const QByteArray bytes = encodeWith(form.encoding, text);
    if (decodeText(bytes) == text) {
        return bytes;
    }
    const QByteArray plain = text.toUtf8();
    return decodeText(plain) == text ? plain : Utf8Mark.toByteArray() + plain;
}

QByteArray encodeText(const QString& text) {
    const QByteArray bytes = encodeWith(TextEncoding::Windows1252, text);
    // A few texts, such as "Ã©", have bytes that also make sense in another encoding.
    return decodeText(bytes) == text ? bytes : Utf8Mark.toByteArray() + text.toUtf8();
}

} // namespace velmora
