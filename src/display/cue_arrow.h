#pragma once

#include "display/display_traits.h"

#include <QRgb>
#include <QWidget>

namespace velmora {

/// Height of the strip that the cue arrow needs below its top.
inline constexpr int CueArrowHeight = 74;

/// Picture3: the strip beside the text that holds the cue arrow, an arrow head 37 wide and 73 high
/// with its point towards the text: five nested triangles shaded in grey and white.
class ArrowStrip final : public QWidget {
    Q_OBJECT
public:
    /// Mirrored: for the right side of the text, with the point at the left.
    explicit ArrowStrip(Orientation orientation, QWidget* parent = nullptr);
    void setBackground(QRgb color);
    /// Top of the arrow, ArrowPosition, in pixels of the strip.
    void setArrow(int top);
    /// The size of the text beside the strip as a share of its whole size, 1 or less: the point
    /// stays beside the same row of it.
    void setShare(double share);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Orientation m_orientation;
    QRgb m_background = 0xff000000;
    int m_top = 0;
    double m_share = 1;
};

} // namespace velmora
