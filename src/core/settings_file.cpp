#include "core/settings_file.h"

#include "core/app_folder.h"
#include "core/arrangement.h"
#include "core/colour_tables.h"
#include "core/line_spacing.h"
#include "core/list_items.h"
#include "core/number_format.h"
#include "platform/files/whole_file.h"
#include "platform/text_services/text_encoding.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <variant>

namespace velmora {

namespace {

/// A whole number of 16 bits, or one of 32: a value that does not fit is no value.
struct Integer16 final {
    int Settings::*member;
};
struct Integer32 final {
    int Settings::*member;
};
struct Real final {
    double Settings::*member;
};
struct Text final {
    QString Settings::*member;
};
/// Written as 1 for 1 and as 0 for everything else.
struct Switch final {
    int Settings::*member;
};

using Field = std::variant<Integer16, Integer32, Real, Text, Switch>;

/// The file's order.
constexpr std::array<Field, 46> Fields = {
    Integer16{&Settings::ColumnMargin},
    Switch{&Settings::AutomaticLooping},
    Real{&Settings::ScrollSpeed},
    Integer32{&Settings::FirstDisplayLine},
    Integer32{&Settings::ControllerType},
    Integer16{&Settings::ReservedSetting},
    Integer16{&Settings::MirrorMode},
    Integer32{&Settings::LineSpacingIndex},
    Integer32{&Settings::FullScreenMode},
    Integer16{&Settings::IgnoreMonitorHelp},
    Integer16{&Settings::ReservedSetting2},
    Integer16{&Settings::ArrowPosition},
    Real{&Settings::ScreenBackColor},
    Real{&Settings::ScreenTextColor},
    Text{&Settings::ScreenFontName},
    Integer16{&Settings::ScreenFontSize},
    Text{&Settings::LastScriptFolder},
    Integer16{&Settings::ControllerButton1},
    Integer16{&Settings::ControllerButton2},
    Integer16{&Settings::PrintLayout},
    Integer16{&Settings::PrintFontChoice},
    Integer16{&Settings::ScrollerTurbo},
    Integer16{&Settings::ScrollSpeedControl},
    Integer16{&Settings::ArrowVisible},
    Integer16{&Settings::PrintLineNumbers},
    Integer16{&Settings::TimedDisplaySeconds},
    Integer16{&Settings::TimedDisplay},
    Integer16{&Settings::ShuttleButton1},
    Integer16{&Settings::ShuttleButton2},
    Integer16{&Settings::ShuttleButton3},
    Integer16{&Settings::ShuttleButton4},
    Integer16{&Settings::ShuttleButton5},
    Integer16{&Settings::CCActive},
    Integer16{&Settings::CCPort},
    Integer16{&Settings::CCSpeed},
    Integer16{&Settings::CCParity},
    Integer16{&Settings::CCDataBits},
    Integer16{&Settings::CCStopBits},
    Integer16{&Settings::CCFlow},
    Text{&Settings::CCStartCode},
    Text{&Settings::CCStopCode},
    Text{&Settings::CCLineStartCode},
    Text{&Settings::CCLineStopCode},
    Text{&Settings::CCResetCode},
    Text{&Settings::ScriptsFolder},
    Real{&Settings::Delay},
};
/// The caption port's fields, which a damaged file does not reset: 33 to 44.
constexpr std::size_t FirstCaptionField = 32;
constexpr std::size_t CaptionFieldEnd = 44;

constexpr int FontSizeAfterDamage = 27;
/// Points. A size beyond the lists is somebody's choice; beyond this one no word fits a line.
constexpr int LeastFontSize = 8;
constexpr int GreatestFontSize = 200;
/// Far above what 46 values take; something else may bear the name.
constexpr qint64 MaxBytes = 1 << 20;

template<typename Whole> bool readWhole(ListReader& list, int& value) {
    const std::optional<double> number = list.nextNumber();
    if (!number) {
        return false;
    }
    const std::int64_t rounded = roundHalfEven(*number);
    if (!std::in_range<Whole>(rounded)) {
        return false;
    }
    value = static_cast<int>(rounded);
    return true;
}

/// Reads one item into its member; false at the end of the list or when the item does not fit.
struct FieldReader final {
    ListReader& list;
    Settings& settings;

    bool operator()(const Integer16& f) const {
        return readWhole<std::int16_t>(list, settings.*f.member);
    }
    bool operator()(const Switch& f) const {
        return readWhole<std::int16_t>(list, settings.*f.member);
    }
    bool operator()(const Integer32& f) const {
        return readWhole<std::int32_t>(list, settings.*f.member);
    }
    bool operator()(const Real& f) const {
        const std::optional<double> number = list.nextNumber();
        settings.*f.member = number.value_or(0);
        return number.has_value();
    }
    bool operator()(const Text& f) const {
        const std::optional<QString> text = list.nextText();
        settings.*f.member = text.value_or(QString());
        return text.has_value();
    }
};

struct FieldWriter final {
    const Settings& settings;

    QString operator()(const Integer16& f) const { return printNumber(settings.*f.member); }
    QString operator()(const Integer32& f) const { return printNumber(settings.*f.member); }
    QString operator()(const Real& f) const { return printNumber(settings.*f.member); }
    QString operator()(const Text& f) const { return textItem(settings.*f.member); }
    QString operator()(const Switch& f) const {
        return printNumber(settings.*f.member == 1 ? 1 : 0);
    }
};

struct FieldCopier final {
    const Settings& from;
    Settings& to;

    template<typename F> void operator()(const F& f) const { to.*f.member = from.*f.member; }
};

bool readFields(QStringView text, Settings& settings) {
    ListReader list(text);
    for (const Field& field : Fields) {
        if (!std::visit(FieldReader{list, settings}, field)) {
            return false;
        }
    }
    return true;
}

/// Everything but the caption port's fields takes its default.
void resetAfterDamage(Settings& settings, Settings defaults) {
    defaults.ScreenFontSize = FontSizeAfterDamage;
    for (std::size_t i = FirstCaptionField; i < CaptionFieldEnd; ++i) {
        std::visit(FieldCopier{settings, defaults}, Fields[i]);
    }
    settings = std::move(defaults);
}

void limitOr(int& value, int least, int most, int otherwise) {
    if (value < least || value > most) {
        value = otherwise;
    }
}

} // namespace

void deriveSettings(Settings& s) {
    s.RowStep = rowStepOf(s.ScrollerTurbo);
    s.SpeedControllerInUse = speedControllerInUse(s.ControllerType) ? 1 : 0;
}

void limitSettings(Settings& s) {
    s.LineSpacingIndex = std::clamp(s.LineSpacingIndex, MinLineSpacingIndex, MaxLineSpacingIndex);
    if (!(s.Delay >= MinDelay && s.Delay <= MaxDelay)) {
        s.Delay = 1.0;
    }
    s.ScreenFontSize = std::clamp(s.ScreenFontSize, LeastFontSize, GreatestFontSize);
    s.ScreenBackColor = colourOfSetting(s.ScreenBackColor);
    s.ScreenTextColor = colourOfSetting(s.ScreenTextColor);
    limitOr(s.ControllerButton1, 0, 10, 0);
    limitOr(s.ControllerButton2, 0, 10, 0);
    const Settings defaults;
    for (int Settings::*button :
         {&Settings::ShuttleButton1, &Settings::ShuttleButton2, &Settings::ShuttleButton3,
          &Settings::ShuttleButton4, &Settings::ShuttleButton5}) {
        limitOr(s.*button, 0, 8, defaults.*button);
    }
    deriveSettings(s);
    if (s.ScreenFontName.isEmpty()) {
        s.ScreenFontName = defaults.ScreenFontName;
    }
}

Settings defaultSettings(const QString& appFolder, double screenPixelsHigh) {
    Settings settings;
    settings.ArrowPosition = static_cast<int>(roundHalfEven((screenPixelsHigh - 480) / 2 + 193));
    settings.ScriptsFolder = scriptsFolderIn(appFolder);
    settings.LastScriptFolder = settings.ScriptsFolder;
    limitSettings(settings);
    return settings;
}

SettingsFile::SettingsFile(QString appFolder, double screenPixelsHigh)
    : m_appFolder(std::move(appFolder)), m_screenPixelsHigh(screenPixelsHigh) {}

QString SettingsFile::path() const {
    return m_appFolder + fileName();
}

SettingsFile::LoadResult SettingsFile::load(Settings& settings) {
    m_damaged = false;
    Settings defaults = defaultSettings(m_appFolder, m_screenPixelsHigh);
    if (!QFileInfo::exists(path())) {
        settings = std::move(defaults);
        return LoadResult::FirstRun;
    }
    settings = Settings();
    QByteArray bytes;
    m_damaged = !readWholeFile(path(), MaxBytes, bytes) || !readFields(decodeText(bytes), settings);
    if (m_damaged) {
        resetAfterDamage(settings, std::move(defaults));
    }
    limitSettings(settings);
    return m_damaged ? LoadResult::Damaged : LoadResult::Read;
}

Outcome SettingsFile::save(const Settings& settings) {
    QString text;
    for (const Field& field : Fields) {
        text += std::visit(FieldWriter{settings}, field) + QStringLiteral("\r\n");
    }
    if (m_damaged) {
        keepDamagedFile();
    }
    Outcome written = writeWholeFile(path(), encodeText(text));
    m_damaged = m_damaged && !written;
    return written;
}

void SettingsFile::keepDamagedFile() const {
    const QString kept = path() + QStringLiteral(".damaged");
    QFile::remove(kept);
    // A file that may not be read can still be moved, and so can a pipe, whose copy would never
    // end.
    if (!QFileInfo(path()).isFile() || !QFile::copy(path(), kept)) {
        QFile::rename(path(), kept);
    }
}

} // namespace velmora
