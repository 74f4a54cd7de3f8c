#pragma once

#include <QRect>
#include <QString>

#include <vector>

class QWidget;

namespace velmora {

struct NamedScreen;

/// The display of a window: where it stood at the start of the show, and where it stands; empty
/// while there is none for it.
struct DisplayPlace final {
    QRect home;
    QRect now;
    /// The name of the screen at home, if it is one.
    QString name;

    /// Home goes where its screen has gone, as when another one beside it is taken away. A name
    /// that several screens have tells nothing.
    void follow(const std::vector<NamedScreen>& screens);
    /// Chooses among the displays that are there: home, else where the window is, else any that is
    /// not taken by another window, else none.
    void choose(const std::vector<QRect>& displays, const QRect& taken);
};

/// Shows a window so that it fills a display, in real pixels: on a screen of exactly this
/// rectangle as a full-screen window, which panels do not cover; elsewhere above the others.
void fillDisplay(QWidget& window, const QRect& display);

} // namespace velmora
