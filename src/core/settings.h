#pragma once

#include <QString>

#include <array>

namespace velmora {

/// Limits of Delay.
inline constexpr double MinDelay = 0.1;
inline constexpr double MaxDelay = 5.0;
/// Limits of TimedDisplaySeconds.
inline constexpr int MinTimedSeconds = 10;
inline constexpr int MaxTimedSeconds = 3599;

/// RowStep as it follows from ScrollerTurbo. A damaged file's values other than 0 and 1 are off.
[[nodiscard]] constexpr int rowStepOf(int scrollerTurbo) {
    return scrollerTurbo == 1 ? 2 : 1;
}

/// The 46 values of the settings file, in the file's order, and what is derived from them at load.
/// Read once at start, written once at exit; in between every window reads and assigns them
/// directly. The defaults here are those of a first run that do not depend on the machine;
/// SettingsFile::defaults fills in the others.
struct Settings final {
    /// Width that the text column gives up, in units of the 640-wide reference screen, 12 to 320.
    int ColumnMargin = 12;
    /// 1: return to the top at the end of the script.
    int AutomaticLooping = 0;
    /// Last scroll speed, 0 to 255; may hold a fraction.
    double ScrollSpeed = 60;
    /// 0 start at the first line, 1 at the line of the caret.
    int FirstDisplayLine = 0;
    /// 0 or 11 none, 10 foot, 20 trigger, 21 RF wireless; core/arrangement.h.
    int ControllerType = 0;
    /// Kept and written back, used by nothing.
    int ReservedSetting = 1;
    /// 0 one display, 1 one display mirrored, 4 two displays mirrored; core/arrangement.h.
    int MirrorMode = 0;
    /// Step of the spacing table, 1 to 36.
    int LineSpacingIndex = 26;
    /// 0 display with controls, 1 full screen.
    int FullScreenMode = 0;
    /// 1 suppresses the help on several monitors at start.
    int IgnoreMonitorHelp = 0;
    /// Kept and written back, used by nothing.
    int ReservedSetting2 = 0;
    /// Top of the cue arrow on the display, in pixels; limited by the display's Vscroll2.
    int ArrowPosition = 193;
    /// Background of the editor and the display; a 24-bit colour, red in the low byte.
    double ScreenBackColor = 0;
    /// Default text colour, likewise.
    double ScreenTextColor = 16777215;
    QString ScreenFontName = QStringLiteral("Arial");
    /// Points.
    int ScreenFontSize = 26;
    /// Folder in which the file dialogs open, with its trailing separator.
    QString LastScriptFolder;
    int ControllerButton1 = 0;
    int ControllerButton2 = 1;
    int PrintLayout = 0;
    int PrintFontChoice = 0;
    /// 1: two pixel rows a step instead of one.
    int ScrollerTurbo = 0;
    /// 0 Split Range, 1 Full Range.
    int ScrollSpeedControl = 0;
    /// 1: cue arrow shown.
    int ArrowVisible = 1;
    int PrintLineNumbers = 0;
    /// Duration of a timed show in seconds, 10 to 3599.
    int TimedDisplaySeconds = 30;
    int TimedDisplay = 0;
    int ShuttleButton1 = 5;
    int ShuttleButton2 = 4;
    int ShuttleButton3 = 8;
    int ShuttleButton4 = 2;
    int ShuttleButton5 = 3;
    int CCActive = 0;
    int CCPort = 0;
    int CCSpeed = 0;
    int CCParity = 0;
    int CCDataBits = 0;
    int CCStopBits = 0;
    int CCFlow = 0;
    QString CCStartCode;
    QString CCStopCode;
    QString CCLineStartCode;
    QString CCLineStopCode;
    QString CCResetCode;
    /// Default folder of scripts, with its trailing separator.
    QString ScriptsFolder;
    /// Milliseconds of the fastest step, 0.1 to 5.0.
    double Delay = 1;

    // --- derived at load, not stored ---
    /// Pixel rows a step: 2 with ScrollerTurbo, else 1.
    int RowStep = 1;
    /// 1 when ControllerType is 20 or 21.
    int SpeedControllerInUse = 0;
};

} // namespace velmora
