#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace velmora {

/// PauseState.
namespace pause {
inline constexpr int Scrolling = 0;
/// Paused, or stopped at a limit of the script.
inline constexpr int Paused = 1;
inline constexpr int BeforeStart = 3;
} // namespace pause

/// BookmarkJump.
namespace bookmark_jump {
inline constexpr int None = 0;
inline constexpr int Next = 1;
inline constexpr int Previous = 2;
} // namespace bookmark_jump

/// The variables by which the editor hands a show over and by which handlers steer its loop.
/// Single-threaded: handlers write them from inside DoEvents, the loop reads them afresh at each
/// turn.
struct ShowState final {
    // --- hand-over between editor and display ---
    /// The script as RTF, taken at the start of a show.
    QByteArray ScriptRtf;
    /// 0 start at the first line, 1 start at the line StartPosition. Written by the Start commands.
    int StartFromCursor = 0;
    /// 0-based line.
    double StartPosition = 0;
    /// 1 from the start of a show until the editor is restored: the editor's change handlers rest.
    int ShowRunning = 0;
    /// 1 while a show runs.
    int ShowActive = 0;
    /// 1-based line at the top of the display when the show ended. Written by the display window.
    double ShowTopLine = 0;
    /// 1 tells the loop to leave: Escape, Command3, closing a window. 3 ends a timed run.
    int ExitRequested = 0;
    /// Spacing as text, from LineSpacingIndex.
    QString LineSpacingText;

    // --- the loop ---
    /// Table row of the leading edge of the window: the bottom row going forward, the top row going
    /// backward. 0 to LastScrollRow.
    std::int64_t ScrollRow = 0;
    /// +1 forward, -1 backward.
    int ScrollDirection = 1;
    /// ScrollDirection times RowStep.
    int SignedRowStep = 1;
    /// 0 scrolling, 1 paused or at a limit, 3 waiting for the first start.
    int PauseState = pause::BeforeStart;
    /// PauseState when the wait at a limit began; 99 forces that wait to end.
    int PauseAtLimit = 0;
    /// Requests to turn, acted on between steps.
    int ReverseToBackward = 0;
    int ReverseToForward = 0;
    /// The direction of the next steps, a requested turn included.
    [[nodiscard]] int comingDirection() const {
        return ReverseToForward != 0 ? 1 : ReverseToBackward != 0 ? -1 : ScrollDirection;
    }
    /// The latest request holds: a second one takes the first one back.
    void requestTurn(int direction) {
        ReverseToForward = direction > 0 ? 1 : 0;
        ReverseToBackward = direction < 0 ? 1 : 0;
    }
    /// 1 next bookmark, 2 previous; cleared by the loop.
    int BookmarkJump = bookmark_jump::None;
    /// 1 when the first fill or a reposition found the end of the script inside the window.
    int ReachedEnd = 0;
    /// 1 while the program itself writes Vscroll1's value.
    int SuppressScrollEvent = 0;
    /// 1 while the screen is blanked.
    int BlankState = 0;
    /// 1 while a timed show stands ready for its start.
    int AwaitingStart = 0;
    /// Clock text between the step that computes it and the step that shows it.
    QString CaptionBuffer = QStringLiteral("00:00");
    /// Timer value at which the elapsed clock began.
    double ElapsedStart = 0;
    /// Timer value when a notice was shown, 0 when none is up.
    double MessageShownAt = 0;
};

} // namespace velmora
