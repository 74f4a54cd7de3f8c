#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QByteArray>
#include <QStringList>

namespace velmora {

/// How much larger a font is on the display than in the editor, fitted once a show.
struct ScriptScale final {
    /// The names in the script's font table.
    QStringList FontNames;
    /// Display size of a font over its editor size; above 0.
    double FontScale = 1;
    /// Largest font of the script on the display, in whole points.
    int MaxFontHalf = 0;
};

/// Free width of a display: the screen without the arrow's strip and the scroll bar, in pixels.
[[nodiscard]] int freeWidth(int screenWidth);

/// Fits the scale: for each font of the script the largest whole size at which a measuring string
/// is as much wider than at 27 points as the display's free width asks; the least of them counts.
/// Without a font table the plain ratio of the widths serves.
[[nodiscard]] ScriptScale fitScriptScale(const QByteArray& scriptRtf, int screenWidth);

/// Names in the font table of RTF: from "\fonttbl" to the closing ";}}", "\f0" upwards.
[[nodiscard]] QStringList fontTableNames(const QByteArray& rtf);

/// Largest "\fs" value of RTF after scaling, each scaled value floored; halved, floored: points.
/// An escaped backslash in front of "fs" is text.
[[nodiscard]] int largestScaledPoints(const QByteArray& rtf, double fontScale);

/// Height of a line of text in this font at 96 dpi, unzoomed, in pixels.
[[nodiscard]] double textHeight(const CharacterFormat& format);

} // namespace velmora
