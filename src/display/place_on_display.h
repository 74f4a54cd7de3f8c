#pragma once

#include <QRect>

#include <vector>

class QWidget;

namespace velmora {

/// The display of a window: where it stood at the start of the show, and where it stands; empty
/// while there is none for it.
struct DisplayPlace final {
    QRect home;
    QRect now;

    /// Chooses among the displays that are there: home, else where the window is, else any that is
    /// not taken by another window, else none.
    void choose(const std::vector<QRect>& displays, const QRect& taken);
    /// The display that the window has a claim to: home where that is there, else where it is.
    [[nodiscard]] QRect seat(const std::vector<QRect>& displays) const;
};

/// Shows a window so that it fills a display, in real pixels: on a screen of exactly this
/// rectangle as a full-screen window, which panels do not cover; elsewhere above the others.
void fillDisplay(QWidget& window, const QRect& display);

} // namespace velmora
