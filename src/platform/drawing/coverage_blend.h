#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRgb>

namespace velmora {

class Surface;

/// Draws a colour (0xffRRGGBB) through a coverage picture (QImage::Format_Alpha8) whose top left
/// corner lies at place, inside clip and the target only. A pixel becomes
/// (below * (255 - coverage) + color * coverage) / 255 in each channel, rounded to the nearest.
void blendCoverage(Surface& target, const QRect& clip, const QImage& coverage, QPoint place,
                   QRgb color);

} // namespace velmora
