#include "display/font_scale.h"

#include "display/display_geometry.h"
#include "platform/drawing/reference_units.h"

#include <QFont>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <optional>

namespace velmora {

namespace {

/// Width of the text on the reference screen, in pixels: 300, and 20 twips at 15 twips a pixel.
constexpr double ReferenceTextWidth = 300.0 + 20.0 / 15.0;
constexpr int ReferencePoints = 27;
constexpr int SmallestFit = 54;
constexpr int LargestFit = 1000;
constexpr int CoarseStep = 10;
/// The fitted text may be so many pixels short of the ratio.
constexpr double Slack = 12;

QString measuringString() {
    return QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ abcdefghijklmnopqrstuvwxyz1234567890`~!@#$%^"
                          "&*()-_=+\\|[]{};':,./<>?");
}

/// Metrics are taken in the layout's units, and told in pixels of 96 dpi.
QFont referenceFont(const QString& name, int units) {
    QFont font(name);
    font.setPixelSize(std::max(1, units));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double textWidth(const QString& fontName, int points) {
    const QFontMetricsF metrics(referenceFont(fontName, points * UnitsPerPoint));
    return std::round(metrics.horizontalAdvance(measuringString()) / UnitsPerPixel);
}

int fittedSize(const QString& fontName, double ratio) {
    const double wanted = textWidth(fontName, ReferencePoints) * ratio - Slack;
    int size = SmallestFit;
    while (size <= LargestFit && textWidth(fontName, size) < wanted) {
        size += CoarseStep;
    }
    // A display so small that the first size fits already is searched from the bottom: no text may
    // become wider than its window.
    size = size == SmallestFit ? 1 : size - CoarseStep;
    while (size <= LargestFit && textWidth(fontName, size) < wanted) {
        ++size;
    }
    return std::max(1, size - 1);
}

} // namespace

int freeWidth(int screenWidth) {
    return screenWidth - arrowStripWidth(screenWidth) - scrollBarWidth(screenWidth);
}

ScriptScale fitScriptScale(const QByteArray& scriptRtf, int screenWidth) {
    ScriptScale scale;
    scale.FontNames = fontTableNames(scriptRtf);
    const double ratio = freeWidth(screenWidth) / ReferenceTextWidth;
    std::optional<int> least;
    for (const QString& name : scale.FontNames) {
        const int size = fittedSize(name, ratio);
        least = std::min(least.value_or(size), size);
    }
    scale.FontScale = least ? static_cast<double>(*least) / ReferencePoints : ratio;
    scale.MaxFontHalf = largestScaledPoints(scriptRtf, scale.FontScale);
    return scale;
}

QStringList fontTableNames(const QByteArray& rtf) {
    QStringList names;
    const qsizetype table = rtf.indexOf("\\fonttbl");
    const qsizetype end = table < 0 ? -1 : rtf.indexOf(";}}", table);
    if (end < 0) {
        return names;
    }
    qsizetype at = table;
    for (int n = 0;; ++n) {
        at = rtf.indexOf("\\f" + QByteArray::number(n), at);
        if (at < 0 || at > end) {
            return names;
        }
        const qsizetype blank = rtf.indexOf(' ', at);
        const qsizetype stop = rtf.indexOf(';', at);
        if (blank < 0 || stop < blank) {
            return names;
        }
        names.append(QString::fromLatin1(rtf.mid(blank + 1, stop - blank - 1)));
        at = stop;
    }
}

int largestScaledPoints(const QByteArray& rtf, double fontScale) {
    double largest = 0;
    for (qsizetype at = rtf.indexOf("\\fs"); at >= 0; at = rtf.indexOf("\\fs", at + 3)) {
        qsizetype backslashes = 0;
        while (at - backslashes > 0 && rtf[at - backslashes - 1] == '\\') {
            ++backslashes;
        }
        qsizetype end = at + 3;
        while (end < rtf.size() && rtf[end] >= '0' && rtf[end] <= '9') {
            ++end;
        }
        if (backslashes % 2 == 0 && end > at + 3) {
            const double halfPoints = rtf.mid(at + 3, end - at - 3).toDouble();
            largest = std::max(largest, std::floor(halfPoints * fontScale));
        }
    }
    return static_cast<int>(largest * 0.5);
}

double textHeight(const CharacterFormat& format) {
    QFont font = referenceFont(format.fontName, format.halfPoints * UnitsPerHalfPoint);
    font.setBold(format.bold);
    font.setItalic(format.italic);
    return QFontMetricsF(font).height() / UnitsPerPixel;
}

} // namespace velmora
