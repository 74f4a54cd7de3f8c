#include "setup/display_option_tables.h"

#include "core/arrangement.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora {

namespace {

/// Far above what a few hundred additions err by, far below a step.
constexpr double DelayTolerance = 1e-6;

constexpr Notice TurboNotice = {
    u"Select Turbo Mode", u"Turbo mode doubles the scroller's display speed.\r\n"
                          u"However, it also reduces the smoothness of the scrolling text.\r\n"
                          u"Use Turbo mode only if display speed is too slow."};

constexpr Notice FullRangeNotice = {
    u"Switching to Full Range Mode",
    u"In Full Range mode, the full speed range of the control is dedicated to one scrolling "
    u"direction at a time.  Scroll direction must be manually selected by the operator.  Hand "
    u"controller buttons ignore user programming and function only as Pause and Reverse "
    u"Direction.  Full Range mode should be used only when very fine speed control is required.  "
    u"This setting is not recommended for most users."};

constexpr Notice SplitRangeNotice = {
    u"Switching to Split Range Mode",
    u"In Split Range mode, half of the speed range of the control is assigned to forward "
    u"scrolling, and half to backward scrolling.  Scrolling direction is automatically determined "
    u"by speed indicator position.  Speed indicator positions on the left side of the control set "
    u"backwards direction and speed.  Positions on the right side determine forward direction and "
    u"speed.  Scrolling pauses when the speed indicator is in the center.  In Split Range mode, "
    u"all programmable hand controller button functions are supported.  Split Range mode is the "
    u"recommended setting."};

constexpr std::array Looping = {SettingValue{0, u"Auto Looping Off"},
                                SettingValue{1, u"Auto Looping On"}};
constexpr std::array FullScreen = {SettingValue{0, u"Display With Controls"},
                                   SettingValue{1, u"Display Full Screen"}};
constexpr std::array FirstLine = {SettingValue{0, u"Start At First Line"},
                                  SettingValue{1, u"Start At Current Line"}};
constexpr std::array Turbo = {SettingValue{0, u"Turbo Off, Smooth Scroll"},
                              SettingValue{1, u"Turbo On, Rougher Scroll", &TurboNotice}};
constexpr std::array Range = {
    SettingValue{0, u"Split Range (Recommended)", &SplitRangeNotice},
    SettingValue{1, u"Full Range", &FullRangeNotice},
};
constexpr std::array Displays = {
    SettingValue{mirror::OneDisplay, u"One Display"},
    SettingValue{mirror::Mirrored, u"One Display, Mirrored L-R"},
    SettingValue{mirror::TwoDisplays, u"Two Displays, Mirrored L-R"},
};
constexpr std::array Timed = {SettingValue{0, u"Timed Display Off"},
                              SettingValue{1, u"Timed Display On"}};

} // namespace

namespace options {

constexpr CyclingSetting AutomaticLooping = {
    {u"AutomaticLooping", u"Set Automatic Looping", u"Label7"},
    &Settings::AutomaticLooping,
    Looping};
constexpr CyclingSetting FullScreenMode = {
    {u"FullScreenMode", u"Scroller Full Screen Mode", u"Label11"},
    &Settings::FullScreenMode,
    FullScreen};
constexpr CyclingSetting FirstDisplayLine = {
    {u"FirstDisplayLine", u"First Scroller Display Line", u"Label15"},
    &Settings::FirstDisplayLine,
    FirstLine};
constexpr CyclingSetting ScrollerTurbo = {
    {u"ScrollerTurbo", u"Scroller Turbo Mode", u"Label19"}, &Settings::ScrollerTurbo, Turbo};
constexpr CyclingSetting ScrollSpeedControl = {
    {u"ScrollSpeedControl", u"Speed Control Mode", u"Label23"},
    &Settings::ScrollSpeedControl,
    Range};
constexpr CyclingSetting Mirrordisplay = {
    {u"Mirrordisplay", u"Configure Displays", u"Label31"}, &Settings::MirrorMode, Displays};
constexpr CyclingSetting TimedDisplay = {
    {u"TimedDisplay", u"Timed Display", u"Label33"}, &Settings::TimedDisplay, Timed};

} // namespace options

const SettingValue* CyclingSetting::find(int value) const {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [value](const SettingValue& v) { return v.value == value; });
    return found == values.end() ? nullptr : &*found;
}

const SettingValue& CyclingSetting::next(int value) const {
    const SettingValue* found = find(value);
    return found == nullptr || found == &values.back() ? values.front() : *(found + 1);
}

QString controllerText(int controllerType) {
    switch (controllerType) {
    case controller::Trigger:
        return QStringLiteral("Trigger Controller");
    case controller::RfWireless:
        return QStringLiteral("RF Wireless Controller");
    case controller::Foot:
        return QStringLiteral("Foot Controller");
    default:
        return QStringLiteral("No Speed Controller");
    }
}

void limitDisplayOptions(Settings& settings) {
    for (const CyclingSetting* row :
         {&options::AutomaticLooping, &options::FullScreenMode, &options::FirstDisplayLine,
          &options::ScrollerTurbo, &options::ScrollSpeedControl, &options::TimedDisplay}) {
        int& value = settings.*(row->setting);
        value = std::clamp(value, 0, 1);
    }
    if (settings.MirrorMode == 2 || settings.MirrorMode == 3) {
        settings.MirrorMode = mirror::TwoDisplays;
    }
}

double movedDelay(double delay, double step) {
    const double moved = delay + step;
    // Also when moved is no number.
    if (!(moved > MinDelay + DelayTolerance)) {
        return MinDelay;
    }
    return moved < MaxDelay - DelayTolerance ? moved : MaxDelay;
}

QString delayText(double delay) {
    return QString::number(std::round(delay * 10) / 10, 'f', 1);
}

} // namespace velmora
