#include "setup/caption_port_settings.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::array<QStringView, 2> ActiveTexts = {u"Off", u"On"};
constexpr std::array<QStringView, 10> PortTexts = {u"COM 1:", u"COM 2:", u"COM 3:", u"COM 4:",
                                                   u"COM 5:", u"COM 6:", u"COM 7:", u"COM 8:",
                                                   u"COM 9:", u"COM 10:"};
constexpr std::array<QStringView, 13> SpeedTexts = {
    u"110",   u"300",   u"1200",   u"2400",   u"4800",   u"9600",  u"19200",
    u"38400", u"57600", u"115200", u"230400", u"460800", u"921600"};
constexpr std::array<QStringView, 5> ParityTexts = {u"None", u"Even", u"Odd", u"Mark", u"Space"};
constexpr std::array<QStringView, 4> DataBitsTexts = {u"5", u"6", u"7", u"8"};
constexpr std::array<QStringView, 3> StopBitsTexts = {u"1", u"1.5", u"2"};
constexpr std::array<QStringView, 4> FlowTexts = {u"None", u"Xon/Xoff", u"RTS", u"RTS + Xon/Xoff"};

} // namespace

namespace captions {

constexpr CaptionPortSetting Active = {&Settings::CCActive, 0, ActiveTexts};
constexpr CaptionPortSetting Port = {&Settings::CCPort, 1, PortTexts};
constexpr CaptionPortSetting Speed = {&Settings::CCSpeed, 1, SpeedTexts};
constexpr CaptionPortSetting Parity = {&Settings::CCParity, 1, ParityTexts};
constexpr CaptionPortSetting DataBits = {&Settings::CCDataBits, 1, DataBitsTexts};
constexpr CaptionPortSetting StopBits = {&Settings::CCStopBits, 1, StopBitsTexts};
constexpr CaptionPortSetting Flow = {&Settings::CCFlow, 1, FlowTexts};

} // namespace captions

int CaptionPortSetting::limit(Settings& settings) const {
    int& value = settings.*setting;
    value = std::clamp(value, first, last());
    return value;
}

void CaptionPortSetting::advance(Settings& settings) const {
    settings.*setting = limit(settings) == last() ? first : settings.*setting + 1;
}

QString CaptionPortSetting::text(const Settings& settings) const {
    return texts[static_cast<std::size_t>(settings.*setting - first)].toString();
}

QString captionPortSummary(Settings& settings) {
    if (settings.CCActive == 0) {
        return captions::Active.texts.front().toString();
    }
    for (const CaptionPortSetting* row :
         {&captions::Speed, &captions::Parity, &captions::DataBits, &captions::StopBits}) {
        row->limit(settings);
    }
    // The parity's first letter stands for it.
    const QChar parity = captions::Parity.text(settings).front().toLower();
    return QStringLiteral("On: COM %1, %2, %3, %4, %5")
        .arg(QString::number(settings.CCPort), captions::Speed.text(settings), QString(parity),
             captions::DataBits.text(settings), captions::StopBits.text(settings));
}

} // namespace velmora
