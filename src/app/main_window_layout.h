#pragma once

#include <QRect>
#include <QSize>

namespace velmora {

struct ScreenState;

/// Where everything on the main window stands. A pure function of the screen and of the room that
/// the window manager leaves inside the window's frame. Pixels, in the window's coordinates.
struct MainWindowLayout final {
    QRect Backpicture;
    QRect LoadText;
    QRect SaveText;
    QRect Combo1;
    QRect Combo2;
    QRect SetupButton;
    QRect ExitButton;
    /// Rows between the strips: top and height of rtb1.
    int editorTop = 0;
    int editorHeight = 0;
    QRect bottomStrip;
    QRect Label2;
    QRect Label4;
    QRect Hscroll1;
    QRect Label5;
    QRect StartButton;
    QRect noticeLine;
};

[[nodiscard]] MainWindowLayout layoutMainWindow(const ScreenState& screen, QSize client);

/// The text column at a margin of the reference screen's 640: left Int(scale * margin / 2), width
/// Int(scale * 640 - scale * margin), scale being columnScale(); cut where the window ends.
[[nodiscard]] QRect textColumn(const MainWindowLayout& layout, const ScreenState& screen,
                               int margin, QSize client);

} // namespace velmora
