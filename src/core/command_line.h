#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace velmora {

class Session;
struct DisplayState;

/// What `--rehearse` was asked for. No value means: as the default settings have it.
struct RehearsalArguments final {
    /// Absolute.
    QString script;
    /// Duration of a timed show, 10 to 3599.
    std::optional<int> seconds;
    /// ScrollSpeed, 0 to 136; in Full Range 0 to 127.
    std::optional<double> speed;
    /// Leaves after so many seconds, above 0; without a value at the script's end.
    std::optional<double> forSeconds;
    /// ScrollSpeedControl: 0 Split Range, 1 Full Range.
    std::optional<int> range;
    bool turbo = false;
    /// Pixels.
    std::optional<QSize> screen;
    /// ColumnMargin, 12 to 320.
    std::optional<int> margin;
    /// MirrorMode: 0, 1 or 4.
    std::optional<int> mirror;
    /// Absolute; empty for none.
    QString report;
    QString picture;
};

/// The command line as understood.
struct CommandLine final {
    enum class Action { OpenEditor, ShowHelp, ShowVersion, Convert, Rehearse, Refuse };
    /// Left, top, width and height of display 1, then of display 2; pixels.
    using DisplayRectangles = std::array<int, 8>;

    Action action = Action::OpenEditor;
    /// OpenEditor: absolute path of the script to open; empty for none.
    QString script;
    /// OpenEditor: the displays, when the command line gave them.
    std::optional<DisplayRectangles> displays;
    /// Convert: absolute.
    QString convertFrom;
    QString convertTo;
    RehearsalArguments rehearsal;
    /// Refuse: what is wrong, a sentence for stderr.
    QString problem;
};

/// The status of a process that refused its command line.
inline constexpr int UsageExitStatus = 2;

/// Understands the arguments, without the program's name. Relative paths are taken from
/// currentFolder, since the process leaves that folder at start.
[[nodiscard]] CommandLine parseCommandLine(const QStringList& arguments,
                                           const QString& currentFolder);

/// The text of `--help`, ended by a line end.
[[nodiscard]] QString usageText();

/// Makes the rectangles those that GetDisplayRect tells.
void applyDisplayRectangles(const CommandLine::DisplayRectangles& rectangles,
                            DisplayState& displays);

/// Sets the settings that a rehearsal was asked for.
void applyRehearsal(const RehearsalArguments& arguments, Session& session);

} // namespace velmora
