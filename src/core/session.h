#pragma once

#include "core/settings.h"
#include "core/show_state.h"
#include "platform/files/file_stamp.h"
#include "platform/platform.h"
#include "platform/rich_text/rich_text_box.h"

#include <QString>

#include <optional>

namespace velmora {

/// Display 1 and the reference screen of 640 by 480 on which all layout numbers stand.
/// Written by the application's start-up, read by every window.
struct ScreenState final {
    /// Pixels.
    double ScreenPixelsWide = 640;
    double ScreenPixelsHigh = 480;
    /// Real screen over reference screen, horizontally.
    double ScaleX = 1;
    /// Vertically, with a tenth of the growth added.
    double ScaleY = 1;
    /// Bits a pixel.
    int ColorDepth = 32;
    int HighColorDisplay = 1;
};

/// The display rectangles: the command line's, and the one last asked for. Pixels.
struct DisplayState final {
    int CmdDisplay1Left = 0;
    int CmdDisplay1Top = 0;
    int CmdDisplay1Width = 0;
    int CmdDisplay1Height = 0;
    int CmdDisplay2Left = 0;
    int CmdDisplay2Top = 0;
    int CmdDisplay2Width = 0;
    int CmdDisplay2Height = 0;
    /// 1 when the command line gave them.
    int CmdDisplaysGiven = 0;
    /// Filled by GetDisplayRect.
    int DisplayLeft = 0;
    int DisplayTop = 0;
    int DisplayWidth = 0;
    int DisplayHeight = 0;
};

/// The script and the file that it came from or went to.
struct ScriptState final {
    /// The script itself and the program's layout engine.
    RichTextBox rtb1;
    /// Staging: every text that enters is tamed here first; the RTF save is prepared here.
    RichTextBox rtb2;
    /// Full path of the current script; empty for none.
    QString ScriptFileName;
    /// 0 RTF, 1 plain text, 9 DOC, 13 DOCX.
    int ScriptFileType = 0;
    /// The path without its extension, as the last save took it.
    QString ScriptFileBase;
    /// The file that holds this script and nothing else: it was saved there, or loaded from there
    /// into an empty editor without anything left out. A save replaces it without a question,
    /// unless another program has changed it. Empty for none.
    QString ownFile;
    /// Of ownFile when it was last read or written here.
    FileStamp ownFileStamp;
    /// Of the text file that the script came from; a new text's otherwise.
    TextForm textForm;
    /// True while a script is loaded or saved: neither starts inside the other.
    bool fileInProgress = false;
    /// 1 when the script differs from what was last saved.
    int TextChanged = 0;
    /// Set by the exit before it asks for a save; cleared by a successful save.
    int SaveFailed = 0;
    /// 1 while the exit has asked for a save.
    int ExitSaveInProgress = 0;
    /// Answer of the last question: 0 none, 2 Cancel, 6 Yes, 7 No.
    int ExitAnswer = 0;
    /// Set to 0 by the opener of a small dialog, to 1 by its buttons: its wait ends then.
    int DialogClosing = 0;
    /// 1 when the monitor help has closed.
    int MonitorHelpClosed = 0;
};

/// The search, in the editor and in a show alike.
struct FindState final {
    /// What the find windows hand over; empty means that the window was left.
    QString FindText;
    /// Text of the last search, offered by the next window. Not stored in the settings.
    QString LastFindText;
    /// 1 next, -1 previous, 2 first (replace: all), 0 none.
    int FindDirection = 0;
};

/// What all windows share. Owned by the application; given to every form and to the logic.
class Session final {
public:
    explicit Session(Platform& services) : platform(services) {}

    Platform& platform;
    Settings settings;
    /// Folder of the program's own files, with a trailing "/". Set at start.
    QString AppFolder;
    ScreenState screen;
    DisplayState displays;
    ScriptState script;
    ShowState show;
    FindState find;
    /// The ControllerType that holds while Form3 asks for another one, when the setting reads 0.
    std::optional<int> keptControllerType;
    /// False in an unattended run: no settings, no recent files are written.
    bool keepsFiles = true;
};

} // namespace velmora
