#pragma once

#include "platform/drawing/scroll_surface.h"

#include <QWidget>

namespace velmora {

/// Picture1: the visible text window. Shows a ScrollSurface between its margins, shrunk where the
/// window is narrower than the surface, or nothing while the screen is blanked. Has the focus and
/// all keys of a show, which its owner takes by an event filter.
class TextWindow final : public QWidget {
    Q_OBJECT
public:
    explicit TextWindow(QWidget* parent = nullptr);

    [[nodiscard]] ScrollSurface& surface() { return m_surface; }
    void setBackground(QRgb color);
    /// The picture stays as it is beneath.
    void setBlank(bool blank);
    /// Where rows of the surface are to be seen.
    [[nodiscard]] QRect placeOfRows(int first, int count) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Width of the window over that of the surface where it is less.
    [[nodiscard]] double share() const;

    ScrollSurface m_surface;
    QRgb m_background = 0xff000000;
    bool m_blank = false;
};

} // namespace velmora
