#pragma once

#include "display/display_traits.h"

#include <functional>

class QPainter;
class QWidget;

namespace velmora {

/// Paints the face of a widget from inside its paint event, as it is or flipped. Flipped faces are
/// drawn into a picture first: letters and lines drawn through a mirroring painter differ.
void paintFace(QWidget& widget, Orientation orientation,
               const std::function<void(QPainter&)>& face);

} // namespace velmora
