#pragma once

#include "platform/drawing/color.h"

#include <QString>

#include <cstddef>
#include <cstdint>

class QTextCharFormat;

namespace velmora {

/// The format of a run of characters. Equality means: looks the same.
struct CharacterFormat final {
    QString fontName;
    /// Font size in half points, the unit of RTF's \fs; MinHalfPoints to MaxHalfPoints.
    int halfPoints = 24;
    /// Text colour; the automatic colour is 0, black.
    Rgb24 color = Black;
    /// Background of the text; 0 is no background.
    Rgb24 backColor = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;

    bool operator==(const CharacterFormat&) const = default;

    static constexpr int MinHalfPoints = 2;
    static constexpr int MaxHalfPoints = 2000;
};

/// For the containers of Qt.
[[nodiscard]] std::size_t qHash(const CharacterFormat& format, std::size_t seed = 0);

/// Alignment of a paragraph, numbered as the control's SelAlignment property.
enum class Alignment : std::int8_t { Left = 0, Right = 1, Centre = 2 };

/// A character format as the text engine takes it: the size as pixels that are reference units, no
/// hinting, so that metrics scale without a jump.
[[nodiscard]] QTextCharFormat toTextFormat(const CharacterFormat& format);
[[nodiscard]] CharacterFormat fromTextFormat(const QTextCharFormat& format);

} // namespace velmora
