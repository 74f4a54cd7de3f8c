#include "controllers/speed_scale_mapping.h"

#include "controllers/speed_mapping.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double SpeedPerPixel = 1.1038961;
constexpr double ThumbPixelsPerSpeed = 0.8667;
/// Between the pause button and the scale lies a pixel that belongs to neither.
constexpr double ScaleGap = 1;

} // namespace

SpeedScaleMapping::Part SpeedScaleMapping::partAt(double x) const {
    if (buttonsAtRight) {
        return x > startEdge ? Part::Start : x > pauseEdge ? Part::Pause : Part::Scale;
    }
    if (x < pauseEdge) {
        return x < startEdge ? Part::Start : Part::Pause;
    }
    return x < pauseEdge + ScaleGap ? Part::None : Part::Scale;
}

double SpeedScaleMapping::pressedSpeed(double x) const {
    return clampSpeed(std::floor(speedAtOrigin + direction * (x - pressOrigin) * SpeedPerPixel));
}

double SpeedScaleMapping::draggedSpeed(double x) const {
    if (x <= dragLowLimit) {
        return pressedSpeed(dragLowPlace);
    }
    return pressedSpeed(x >= dragHighLimit ? dragHighPlace : x);
}

double SpeedScaleMapping::thumbLeft(double scrollSpeed) const {
    return thumbAtZero + direction * ThumbPixelsPerSpeed * scrollSpeed;
}

double SpeedScaleMapping::draggedThumbLeft(double x, double grabbedAt) const {
    return std::clamp(std::floor(x - grabbedAt), thumbLowest, thumbHighest);
}

double SpeedScaleMapping::thumbSpeed(double left) const {
    return clampSpeed(
        std::floor(speedAtOrigin + direction * (left - thumbLowest) * speedPerThumbPixel));
}

} // namespace velmora
