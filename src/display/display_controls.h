#pragma once

#include "display/control_row.h"
#include "display/cue_arrow.h"
#include "display/display_geometry.h"
#include "display/show_text.h"
#include "widgets/up_down.h"

#include <QScrollBar>

namespace velmora {

/// What of the controls is to be seen.
struct ControlsInSight final {
    /// The row at the foot and the scroll bar.
    bool row = true;
    bool arrow = true;
    /// A hand controller acts as the mouse: there is no pointer that could press a button.
    bool pointerCaught = false;
    /// +1 forward, -1 backward.
    int direction = 1;
    bool notice = false;
    /// Of a timed show: it stands ready for its start; it is under way.
    bool awaitingStart = false;
    bool running = false;
};

/// The controls around the text of a display window. A timed window has a duration in place of the
/// speed scale and the marks. The widgets belong to the window.
class DisplayControls final {
public:
    DisplayControls(const DisplayTraits& traits, QWidget* window);

    void place(const DisplayGeometry& geometry);
    void show(const ControlsInSight& inSight);

    ArrowStrip* Picture3 = nullptr;
    ShowMark* Picture4 = nullptr;
    ShowMark* Picture5 = nullptr;
    SpeedScale* Picture6 = nullptr;
    ShowMark* Picture7 = nullptr;
    /// Elapsed, duration's caption, duration, remaining, and the captions of the clocks.
    ShowText* Label1 = nullptr;
    ShowText* Label2 = nullptr;
    ShowText* Label3 = nullptr;
    ShowText* Label4 = nullptr;
    ShowText* Label5 = nullptr;
    ShowText* Label6 = nullptr;
    QScrollBar* Hscroll1 = nullptr;
    QScrollBar* Vscroll1 = nullptr;
    UpDown* Vscroll2 = nullptr;
    /// Start and Reset of a timed show, one at a time in the same place; back to the editor.
    ShowButton* Command1 = nullptr;
    ShowButton* Command2 = nullptr;
    ShowButton* Command3 = nullptr;

private:
    void nameControls();

    DisplayTraits m_traits;
};

} // namespace velmora
