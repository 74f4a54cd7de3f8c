#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace velmora {

/// Reads the bytes of a text file: UTF-8 with or without a byte order mark, UTF-16 with one, else
/// Windows-1252. Line ends stay as they are. Every byte sequence gives a text.
[[nodiscard]] QString decodeText(QByteArrayView bytes);

/// The bytes from which decodeText makes the same text again: Windows-1252 where every character
/// fits and the bytes cannot be taken for another encoding, else UTF-8 with a byte order mark.
[[nodiscard]] QByteArray encodeText(const QString& text);

/// Windows-1252 alone. The five bytes that the code page leaves open are the control characters of
/// the same number, so that every byte has a character of its own.
[[nodiscard]] QString decodeWindows1252(QByteArrayView bytes);
/// The same for one byte.
[[nodiscard]] char16_t windows1252Character(unsigned char byte);

} // namespace velmora
