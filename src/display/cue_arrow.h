#pragma once

#include "display/display_traits.h"

#include <QRgb>
#include <QWidget>

namespace velmora {

/// Height of the strip that the cue arrow needs below its top, and the place of its point there, on
/// a display up to 1920 pixels wide.
inline constexpr int CueArrowHeight = 74;
inline constexpr int CueArrowPoint = 37;

/// Picture3: the strip beside the text that holds the cue arrow, an arrow head 37 wide and 73 high
/// with its point towards the text: five nested triangles shaded in grey and white. In a wider
/// strip the arrow is larger.
class ArrowStrip final : public QWidget {
    Q_OBJECT
public:
    /// Mirrored: for the right side of the text, with the point at the left.
    explicit ArrowStrip(Orientation orientation, QWidget* parent = nullptr);
    void setBackground(QRgb color);
    /// Place of the arrow's point, in pixels of the whole strip from its top.
    void setPoint(int place);
    /// The size of the text beside the strip as a share of its whole size, 1 or less: the point
    /// stays beside the same row of it.
    void setShare(double share);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Orientation m_orientation;
    QRgb m_background = 0xff000000;
    int m_point = 0;
    double m_share = 1;
};

} // namespace velmora
