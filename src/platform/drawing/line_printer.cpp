#include "platform/drawing/line_printer.h"

#include "platform/drawing/color.h"
#include "platform/drawing/coverage_blend.h"
#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/line_shape.h"
#include "platform/drawing/reference_units.h"
#include "platform/drawing/surface.h"

#include <QGlyphRun>
#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {

namespace {

int rounded(double pixels) {
    return static_cast<int>(std::lround(pixels));
}

/// How the reference units of a line become pixels of the target.
struct Placement final {
    /// Pixels a reference unit.
    double scale = 1;
    /// Of the line's left edge.
    double left = 0;
    int baseline = 0;

    [[nodiscard]] double x(double units) const { return left + units * scale; }
};

Placement placeLine(const LineShape& shape, const PrintBox& box) {
    Placement place;
    place.scale = box.zoom / UnitsPerPixel;
    const double width = (shape.textRight - shape.textLeft) * place.scale;
    double textLeft = box.left;
    if (box.alignment == Alignment::Centre)
        textLeft += (box.width - width) / 2;
    else if (box.alignment == Alignment::Right)
        textLeft += box.width - box.rightGap - width;
    place.left = textLeft - shape.textLeft * place.scale;
    // Rows that are lower than the line lose the leading first, then the room above the capitals,
    // and only then feet.
    // A font of pictures may tell the capitals of one size for all of its sizes: none reaches above
    // the line.
    const double capHeight = std::min(shape.capHeight, shape.ascent);
    const double top = std::max(box.rowHeight - shape.height * place.scale,
                                (capHeight - shape.ascent) * place.scale);
    place.baseline = rounded(top + shape.ascent * place.scale);
    return place;
}

struct PlacedMask final {
    QImage coverage;
    QPoint corner;
    QRgb color = 0;
};

/// The glyphs of a line on the target's pixels.
struct PlacedGlyphs final {
    std::vector<PlacedMask> masks;
    /// Colour glyphs and glyphs too big for a mask.
    struct Other final {
        QGlyphRun glyphs;
        QRgb color = 0;
    };
    std::vector<Other> others;
    /// First and last + 1 column and row with ink; others do not count.
    int inkLeft = std::numeric_limits<int>::max();
    int inkRight = std::numeric_limits<int>::min();
    int inkTop = std::numeric_limits<int>::max();
    int inkBottom = std::numeric_limits<int>::min();
};

void placeOthers(PlacedGlyphs& placed, const GlyphStretch& stretch,
                 const QList<std::uint32_t>& glyphs, QList<QPointF> positions,
                 const Placement& place, QRgb color) {
    for (QPointF& position : positions) {
        position = QPointF(place.x(position.x()), place.baseline + position.y() * place.scale);
    }
    QRawFont font = stretch.font;
    font.setPixelSize(stretch.font.pixelSize() * place.scale);
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    placed.others.push_back({run, color});
}

void placeStretch(PlacedGlyphs& placed, const GlyphStretch& stretch, const Placement& place,
                  QRgb color, GlyphMaskCache& cache) {
    const double pixelSize = stretch.font.pixelSize() * place.scale;
    QList<std::uint32_t> others;
    QList<QPointF> otherPositions;
    for (qsizetype i = 0; i < stretch.glyphs.size(); ++i) {
        const QPointF position = stretch.positions[i];
        const GlyphMask& mask = cache.mask(stretch.font, pixelSize, stretch.glyphs[i]);
        if (!mask.drawable) {
            others.append(stretch.glyphs[i]);
            otherPositions.append(position);
        } else if (!mask.coverage.isNull()) {
            const QPoint pen(rounded(place.x(position.x())),
                             place.baseline + rounded(position.y() * place.scale));
            const QPoint corner = pen + mask.offset;
            placed.inkLeft = std::min(placed.inkLeft, corner.x());
            placed.inkRight = std::max(placed.inkRight, corner.x() + mask.coverage.width());
            placed.inkTop = std::min(placed.inkTop, corner.y());
            placed.inkBottom = std::max(placed.inkBottom, corner.y() + mask.coverage.height());
            placed.masks.push_back({mask.coverage, corner, color});
        }
    }
    if (!others.isEmpty())
        placeOthers(placed, stretch, others, otherPositions, place, color);
}

/// Whole pixels by which the line moves so that no ink lies outside of the window.
int inwardShift(const PlacedGlyphs& placed, const PrintBox& box) {
    if (placed.masks.empty())
        return 0;
    const int windowLeft = static_cast<int>(std::ceil(box.left));
    const int windowRight = static_cast<int>(std::floor(box.left + box.width));
    if (placed.inkLeft < windowLeft)
        return std::min(windowLeft - placed.inkLeft, std::max(0, windowRight - placed.inkRight));
    return -std::clamp(placed.inkRight - windowRight, 0, placed.inkLeft - windowLeft);
}

/// Whole pixels by which the line is lifted: by what its feet reach below their own font's descent,
/// as far as there is room above its ink. The row would cut them.
int lift(const PlacedGlyphs& placed, const LineShape& shape, const PrintBox& box,
         const Placement& place) {
    if (placed.masks.empty())
        return 0;
    const int descent = rounded((shape.height - shape.ascent) * place.scale);
    const int deepest = std::max(box.rowHeight, place.baseline + descent);
    return std::clamp(placed.inkBottom - deepest, 0, std::max(0, placed.inkTop));
}

/// Text backgrounds, as high as the row. Cells that touch meet in the same column.
void drawBackgrounds(Surface& target, const LineShape& shape, const std::vector<StyledText>& runs,
                     const PrintBox& box, const Placement& place) {
    double textEnd = std::numeric_limits<double>::lowest();
    for (const GlyphStretch& stretch : shape.stretches) {
        textEnd = std::max(textEnd, stretch.right);
        const Rgb24 color = runs[stretch.run].format.backColor;
        if (color == 0)
            continue;
        const int left = rounded(place.x(stretch.left));
        target.fillRect(left, 0, rounded(place.x(stretch.right)) - left, box.rowHeight,
                        toPixel(color));
    }
    const Rgb24 lastColor = runs.back().format.backColor;
    if (box.extendBackground && lastColor != 0) {
        const int left = rounded(place.x(textEnd));
        target.fillRect(left, 0, target.width() - left, box.rowHeight, toPixel(lastColor));
    }
}

/// A stroke below or through the text: top edge from the baseline downwards, and thickness, in
/// units of the font's own size.
struct Stroke final {
    double top = 0;
    double thickness = 0;
};

/// Both OpenType and the text engine tell the stroke's upper edge.
Stroke underlineOf(const QRawFont& font) {
    return {font.underlinePosition(), font.lineThickness()};
}

/// From the font's OS/2 table (yStrikeoutSize and yStrikeoutPosition); a font without one is struck
/// through at a third of its ascent.
Stroke strikeOutOf(const QRawFont& font) {
    constexpr qsizetype SizeOffset = 26;
    constexpr qsizetype PositionOffset = 28;
    const QByteArray table = font.fontTable("OS/2");
    if (table.size() < PositionOffset + 2 || font.unitsPerEm() <= 0)
        return {-font.ascent() / 3, font.lineThickness()};
    const double scale = font.pixelSize() / font.unitsPerEm();
    return {-qFromBigEndian<qint16>(table.constData() + PositionOffset) * scale,
            qFromBigEndian<qint16>(table.constData() + SizeOffset) * scale};
}

void drawStroke(Surface& target, const GlyphStretch& stretch, const Stroke& stroke,
                const PrintBox& box, const Placement& place, QRgb color) {
    const int left = rounded(place.x(stretch.left));
    const int right = rounded(place.x(stretch.right));
    const int top = std::max(0, place.baseline + rounded(stroke.top * place.scale));
    const int bottom =
        std::min(box.rowHeight, place.baseline + rounded(stroke.top * place.scale) +
                                    std::max(1, rounded(stroke.thickness * place.scale)));
    target.fillRect(left, top, right - left, bottom - top, color);
}

void drawStrokes(Surface& target, const LineShape& shape, const std::vector<StyledText>& runs,
                 const PrintBox& box, const Placement& place) {
    for (const GlyphStretch& stretch : shape.stretches) {
        const CharacterFormat& format = runs[stretch.run].format;
        if (format.underline) {
            drawStroke(target, stretch, underlineOf(stretch.strokeFont), box, place,
                       toPixel(format.color));
        }
        if (format.strikeThrough) {
            drawStroke(target, stretch, strikeOutOf(stretch.strokeFont), box, place,
                       toPixel(format.color));
        }
    }
}

void drawGlyphs(Surface& target, const PlacedGlyphs& placed, const QRect& rows,
                const QPoint& shift) {
    for (const PlacedMask& mask : placed.masks)
        blendCoverage(target, rows, mask.coverage, mask.corner + shift, mask.color);
    if (placed.others.empty())
        return;
    QPainter painter(&target.image());
    painter.setClipRect(rows);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const PlacedGlyphs::Other& other : placed.others) {
        painter.setPen(QColor::fromRgb(other.color));
        painter.drawGlyphRun(shift, other.glyphs);
    }
}

} // namespace

void printLine(Surface& target, const std::vector<StyledText>& runs, const PrintBox& box,
               GlyphMaskCache& cache) {
    printLine(target, shapeLine(runs, box.rightToLeft, box.roomForBlanks), runs, box, cache);
}

void printLine(Surface& target, const LineShape& shape, const std::vector<StyledText>& runs,
               const PrintBox& box, GlyphMaskCache& cache) {
    if (shape.stretches.empty() || box.rowHeight <= 0)
        return;
    Placement place = placeLine(shape, box);
    PlacedGlyphs placed;
    for (const GlyphStretch& stretch : shape.stretches)
        placeStretch(placed, stretch, place, toPixel(runs[stretch.run].format.color), cache);
    const QPoint shift(inwardShift(placed, box), -lift(placed, shape, box, place));
    place.left += shift.x();
    place.baseline += shift.y();
    drawBackgrounds(target, shape, runs, box, place);
    drawStrokes(target, shape, runs, box, place);
    drawGlyphs(target, placed, QRect(0, 0, target.width(), box.rowHeight), shift);
}

} // namespace velmora
