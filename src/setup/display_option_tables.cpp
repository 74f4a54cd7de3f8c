#include "setup/display_option_tables.h"

#include "core/arrangement.h"

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

constexpr SettingValue Looping[] = {{0, u"Auto Looping Off"}, {1, u"Auto Looping On"}};
constexpr SettingValue FullScreen[] = {{0, u"Display With Controls"}, {1, u"Display Full Screen"}};
constexpr SettingValue FirstLine[] = {{0, u"Start At First Line"}, {1, u"Start At Current Line"}};
constexpr SettingValue Turbo[] = {{0, u"Turbo Off, Smooth Scroll"},
                                  {1, u"Turbo On, Rougher Scroll", &TurboNotice}};
constexpr SettingValue Range[] = {
    {0, u"Split Range (Recommended)", &SplitRangeNotice},
    {1, u"Full Range", &FullRangeNotice},
};
constexpr SettingValue Displays[] = {
    {mirror::OneDisplay, u"One Display"},
    {mirror::Mirrored, u"One Display, Mirrored L-R"},
    {mirror::TwoDisplays, u"Two Displays, Mirrored L-R"},
};
constexpr SettingValue Timed[] = {{0, u"Timed Display Off"}, {1, u"Timed Display On"}};

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
    for (const CyclingSetting* toggle :
         {&options::AutomaticLooping, &options::FullScreenMode, &options::FirstDisplayLine,
          &options::ScrollerTurbo, &options::ScrollSpeedControl, &options::TimedDisplay}) {
        toggle->limit(settings);
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
