#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace velmora {

/// A mark is a byte order mark.
enum class TextEncoding { Utf8, Utf8WithMark, Utf16LittleWithMark, Utf16BigWithMark, Windows1252 };
enum class LineEnd { Lf, CrLf, Cr };

/// How a text is put into bytes. A new text's are UTF-8 and the system's line ends.
struct TextForm final {
    TextEncoding encoding = TextEncoding::Utf8;
    LineEnd lineEnd = systemLineEnd();

    [[nodiscard]] static LineEnd systemLineEnd();
    bool operator==(const TextForm&) const = default;
};

/// Reads the bytes of a text file: UTF-8 with or without a byte order mark, UTF-16 with one, else
/// Windows-1252. Line ends stay as they are. Every byte sequence gives a text. form, if given,
/// takes the encoding and the line end that most lines have.
[[nodiscard]] QString decodeText(QByteArrayView bytes, TextForm* form = nullptr);

/// False for what no text file holds: the bytes of programs, pictures, archives and word processor
/// files.
[[nodiscard]] bool looksLikeText(QByteArrayView bytes);

/// A text with CR LF at its line ends, in a file's own encoding and line ends. What the encoding
/// cannot hold, or what would be read as another one, makes it UTF-8: no character is lost.
[[nodiscard]] QByteArray encodeText(QString text, const TextForm& form);

/// The bytes from which decodeText makes the same text again: Windows-1252 where every character
/// fits and the bytes cannot be taken for another encoding, else UTF-8 with a byte order mark.
[[nodiscard]] QByteArray encodeText(const QString& text);

/// Windows-1252 alone. The five bytes that the code page leaves open are the control characters of
/// the same number, so that every byte has a character of its own.
[[nodiscard]] QString decodeWindows1252(QByteArrayView bytes);
/// The same for one byte.
[[nodiscard]] char16_t windows1252Character(unsigned char byte);

} // namespace velmora
