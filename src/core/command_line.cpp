#include "core/command_line.h"

#include "core/arrangement.h"
#include "core/number_format.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "core/speed_range.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace velmora {

namespace {

constexpr qsizetype ColumnWidth = 4;
constexpr qsizetype ColumnStride = 5;

CommandLine refused(const QString& problem) {
    CommandLine line;
    line.action = CommandLine::Action::Refuse;
    line.problem = problem;
    return line;
}

// --- display rectangles ----------------------------------------------------------------------

/// One text of eight columns. Arguments that a shell has parted are a column each.
QString columnText(const QStringList& arguments) {
    if (arguments.size() == 1) {
        return arguments.first().trimmed();
    }
    QString text;
    for (const QString& argument : arguments) {
        text += argument.trimmed().leftJustified(ColumnWidth, u' ') + u' ';
    }
    return text.trimmed();
}

/// Numbers and blanks, with a blank between one column and the next. A short text has columns that
/// are missing; those count 0.
std::optional<CommandLine::DisplayRectangles> parseRectangles(const QStringList& arguments) {
    const QString text = columnText(arguments);
    CommandLine::DisplayRectangles numbers{};
    const auto most = static_cast<qsizetype>(numbers.size()) * ColumnStride - 1;
    if (text.isEmpty() || text.size() > most) {
        return std::nullopt;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool between = i % ColumnStride == ColumnWidth;
        const bool ofNumber = c == u'-' || (c >= u'0' && c <= u'9');
        if (c != u' ' && (between || !ofNumber)) {
            return std::nullopt;
        }
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto at = static_cast<qsizetype>(i) * ColumnStride;
        numbers[i] = numericPrefix(QStringView(text).mid(std::min(at, text.size()), ColumnWidth));
    }
    return numbers;
}

// --- the options of a rehearsal --------------------------------------------------------------

/// A number within bounds.
bool takeNumber(const QString& value, double least, double most, std::optional<double>& number) {
    number = readNumber(value);
    return number && *number >= least && *number <= most;
}

/// A whole number within bounds.
bool takeWhole(const QString& value, int least, int most, std::optional<int>& number) {
    std::optional<double> given;
    if (!takeNumber(value, least, most, given) || *given != static_cast<int>(*given)) {
        return false;
    }
    number = static_cast<int>(*given);
    return true;
}

bool takeSize(const QString& value, std::optional<QSize>& size) {
    const QStringList parts = value.toLower().split(u'x');
    std::optional<int> width;
    std::optional<int> height;
    if (parts.size() != 2 || !takeWhole(parts[0], 320, 16384, width) ||
        !takeWhole(parts[1], 240, 16384, height)) {
        return false;
    }
    size = QSize(*width, *height);
    return true;
}

bool takeFile(const QString& value, const QDir& folder, QString& path) {
    path = folder.absoluteFilePath(value);
    return !value.isEmpty() && !value.startsWith(u"--");
}

/// One option with a value; take() is false where the value is not one of those told.
struct Option final {
    const char16_t* name;
    const char16_t* values;
    bool (*take)(RehearsalArguments& to, const QString& value, const QDir& folder);
};

constexpr std::array RehearsalOptionTable = {
    Option{u"--seconds", u"a whole number of seconds from 10 to 3599",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               return takeWhole(value, MinTimedSeconds, MaxTimedSeconds, to.seconds);
           }},
    Option{u"--speed", u"a number from 0 to 136, with --range full from 0 to 127",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               return takeNumber(value, 0, speed::DeadBandEnd, to.speed);
           }},
    Option{u"--for", u"a number of seconds from 0.1 to 86400",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               return takeNumber(value, 0.1, 86400, to.forSeconds);
           }},
    Option{u"--range", u"\"split\" or \"full\"",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               to.range = value == u"full" ? 1 : 0;
               return value == u"full" || value == u"split";
           }},
    Option{u"--screen", u"a size such as 1920x1080, from 320x240 to 16384x16384",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               return takeSize(value, to.screen);
           }},
    Option{u"--margin", u"a whole number from 12 to 320",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               return takeWhole(value, MinColumnMargin, MaxColumnMargin, to.margin);
           }},
    Option{u"--mirror", u"0, 1 or 4",
           [](RehearsalArguments& to, const QString& value, const QDir&) {
               return takeWhole(value, mirror::OneDisplay, mirror::TwoDisplays, to.mirror) &&
                      (*to.mirror <= mirror::Mirrored || *to.mirror == mirror::TwoDisplays);
           }},
    Option{u"--report", u"a file name",
           [](RehearsalArguments& to, const QString& value, const QDir& folder) {
               return takeFile(value, folder, to.report);
           }},
    Option{u"--picture", u"a file name",
           [](RehearsalArguments& to, const QString& value, const QDir& folder) {
               return takeFile(value, folder, to.picture);
           }},
};

const Option* findRehearsalOption(const QString& name) {
    const auto* found =
        std::find_if(RehearsalOptionTable.begin(), RehearsalOptionTable.end(),
                     [&](const Option& option) { return name == QStringView(option.name); });
    return found == RehearsalOptionTable.end() ? nullptr : found;
}

/// What does not go together; empty for nothing.
QString contradiction(const RehearsalArguments& arguments) {
    if (arguments.seconds && arguments.speed) {
        return QStringLiteral("--seconds and --speed exclude each other.");
    }
    const bool splitRange = arguments.range.value_or(0) == 0;
    const double given = arguments.speed.value_or(0);
    // Above the middle Full Range plays another speed than the one that was given.
    if (!splitRange && given > speed::Middle) {
        return QStringLiteral("With --range full a show starts at a --speed from 0 to 127.");
    }
    if (splitRange && given > speed::SlowestForward && !arguments.forSeconds) {
        return QStringLiteral("At a --speed above 119 the Split Range stands still and does not "
                              "reach the script's end: give --for as well.");
    }
    return QString();
}

CommandLine parseRehearsal(const QStringList& arguments, const QDir& folder) {
    CommandLine line;
    line.action = CommandLine::Action::Rehearse;
    if (arguments.size() < 2 || arguments[1].startsWith(u"--")) {
        return refused(QStringLiteral("--rehearse needs a script."));
    }
    line.rehearsal.script = folder.absoluteFilePath(arguments[1]);
    for (qsizetype i = 2; i < arguments.size(); ++i) {
        const QString& name = arguments[i];
        if (name == u"--turbo") {
            line.rehearsal.turbo = true;
            continue;
        }
        const Option* option = findRehearsalOption(name);
        if (option == nullptr) {
            return refused(QStringLiteral("--rehearse does not know \"%1\".").arg(name));
        }
        ++i;
        const QString value = i < arguments.size() ? arguments[i] : QString();
        if (!option->take(line.rehearsal, value, folder)) {
            return refused(
                QStringLiteral("%1 needs %2.").arg(name, QString::fromUtf16(option->values)));
        }
    }
    const QString problem = contradiction(line.rehearsal);
    return problem.isEmpty() ? line : refused(problem);
}

CommandLine parseOptions(const QStringList& arguments, const QDir& folder) {
    const QString& option = arguments.first();
    CommandLine line;
    if (option == u"--help" || option == u"-h") {
        line.action = CommandLine::Action::ShowHelp;
        return line;
    }
    if (option == u"--version") {
        line.action = CommandLine::Action::ShowVersion;
        return line;
    }
    if (option == u"--rehearse") {
        return parseRehearsal(arguments, folder);
    }
    if (option == u"--convert") {
        if (arguments.size() != 3) {
            return refused(
                QStringLiteral("--convert needs two files: the one to read, the one to write."));
        }
        line.action = CommandLine::Action::Convert;
        line.convertFrom = folder.absoluteFilePath(arguments[1]);
        line.convertTo = folder.absoluteFilePath(arguments[2]);
        return line;
    }
    if (option == u"--turbo" || findRehearsalOption(option) != nullptr) {
        return refused(QStringLiteral("%1 belongs behind --rehearse SCRIPT.").arg(option));
    }
    return refused(QStringLiteral("There is no option \"%1\".").arg(option));
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments, const QString& currentFolder) {
    CommandLine line;
    const QDir folder(currentFolder);
    const auto isOption = [](const QString& argument) {
        return argument.startsWith(u"--") || argument == u"-h";
    };
    if (arguments.join(u' ').trimmed().isEmpty()) {
        return line;
    }
    if (isOption(arguments.first())) {
        return parseOptions(arguments, folder);
    }
    const bool single = arguments.size() == 1;
    if (!single || !QFileInfo(folder, arguments.first()).isFile()) {
        line.displays = parseRectangles(arguments);
    }
    if (line.displays) {
        return line;
    }
    if (single) {
        // Started from a desktop, nobody reads stderr: what is wrong with it the window says.
        line.script = folder.absoluteFilePath(arguments.first());
        return line;
    }
    return refused(QStringLiteral("The command line is neither one script, nor an option with what "
                                  "belongs to it, nor the rectangles of two displays."));
}

QString usageText() {
    return QStringLiteral(
        "Usage: velmora [SCRIPT]\n"
        "       velmora L1 T1 W1 H1 L2 T2 W2 H2\n"
        "       velmora --convert IN OUT\n"
        "       velmora --rehearse SCRIPT [OPTION ...]\n"
        "       velmora --help | --version\n"
        "\n"
        "Without an option the editor opens, with SCRIPT in it if one is named. Eight numbers,\n"
        "each in a column of four characters with a blank between two columns, are left, top,\n"
        "width and height of display 1 and of display 2 in pixels, in place of the monitors' own.\n"
        "\n"
        "--convert loads IN and saves it as OUT: rich text if OUT ends in .rtf, text if in .txt.\n"
        "\n"
        "--rehearse plays the script as a show with nobody at the keys, and leaves at its end:\n"
        "  --speed S            scroll speed, 0 (fast) to 119, standing still to 136; in the full\n"
        "                       range 0 to 127; 60 without it\n"
        "  --seconds N          a timed show of 10 to 3599 seconds\n"
        "  --for N              leave after N seconds\n"
        "  --range split|full   meaning of the speed: both directions, or forward only\n"
        "  --turbo              two pixel rows a step\n"
        "  --screen WxH         size of the screen, where the platform lets it be set\n"
        "  --margin M           width that the text column gives up, 12 to 320\n"
        "  --mirror 0|1|4       one display, one mirrored, or two of which one is\n"
        "  --report FILE        write the figures of the run as JSON\n"
        "  --picture FILE       write the operator's window half-way as PNG\n");
}

void applyDisplayRectangles(const CommandLine::DisplayRectangles& rectangles,
                            DisplayState& displays) {
    displays.CmdDisplay1Left = rectangles[0];
    displays.CmdDisplay1Top = rectangles[1];
    displays.CmdDisplay1Width = rectangles[2];
    displays.CmdDisplay1Height = rectangles[3];
    displays.CmdDisplay2Left = rectangles[4];
    displays.CmdDisplay2Top = rectangles[5];
    displays.CmdDisplay2Width = rectangles[6];
    displays.CmdDisplay2Height = rectangles[7];
    displays.CmdDisplaysGiven = 1;
}

void applyRehearsal(const RehearsalArguments& arguments, Session& session) {
    Settings& settings = session.settings;
    settings.ScrollSpeed = arguments.speed.value_or(settings.ScrollSpeed);
    settings.ScrollSpeedControl = arguments.range.value_or(settings.ScrollSpeedControl);
    settings.ScrollerTurbo = arguments.turbo ? 1 : 0;
    settings.RowStep = rowStepOf(settings.ScrollerTurbo);
    settings.ColumnMargin = arguments.margin.value_or(settings.ColumnMargin);
    settings.MirrorMode = arguments.mirror.value_or(settings.MirrorMode);
    settings.TimedDisplay = arguments.seconds ? 1 : 0;
    settings.TimedDisplaySeconds = arguments.seconds.value_or(settings.TimedDisplaySeconds);
}

} // namespace velmora
