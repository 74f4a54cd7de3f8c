#include "setup/caption_port_settings.h"

namespace velmora {

namespace {

constexpr SettingValue ActiveValues[] = {{0, u"Off"}, {1, u"On"}};
constexpr SettingValue PortValues[] = {
    {1, u"COM 1:"}, {2, u"COM 2:"}, {3, u"COM 3:"}, {4, u"COM 4:"}, {5, u"COM 5:"},
    {6, u"COM 6:"}, {7, u"COM 7:"}, {8, u"COM 8:"}, {9, u"COM 9:"}, {10, u"COM 10:"}};
constexpr SettingValue SpeedValues[] = {
    {1, u"110"},     {2, u"300"},     {3, u"1200"},   {4, u"2400"},  {5, u"4800"},
    {6, u"9600"},    {7, u"19200"},   {8, u"38400"},  {9, u"57600"}, {10, u"115200"},
    {11, u"230400"}, {12, u"460800"}, {13, u"921600"}};
constexpr SettingValue ParityValues[] = {
    {1, u"None"}, {2, u"Even"}, {3, u"Odd"}, {4, u"Mark"}, {5, u"Space"}};
constexpr SettingValue DataBitsValues[] = {{1, u"5"}, {2, u"6"}, {3, u"7"}, {4, u"8"}};
constexpr SettingValue StopBitsValues[] = {{1, u"1"}, {2, u"1.5"}, {3, u"2"}};
constexpr SettingValue FlowValues[] = {
    {1, u"None"}, {2, u"Xon/Xoff"}, {3, u"RTS"}, {4, u"RTS + Xon/Xoff"}};

} // namespace

namespace captions {

constexpr CyclingSetting Active = {{u"CCActiveButton", u"Closed Captioning Status", u"StatusLabel"},
                                   &Settings::CCActive,
                                   ActiveValues};
constexpr CyclingSetting Port = {
    {u"CCPortButton", u"Communications Port", u"Label4"}, &Settings::CCPort, PortValues};
constexpr CyclingSetting Speed = {
    {u"CCSpeedButton", u"Port Speed", u"Label5"}, &Settings::CCSpeed, SpeedValues};
constexpr CyclingSetting Parity = {
    {u"CCParityButton", u"Parity", u"Label6"}, &Settings::CCParity, ParityValues};
constexpr CyclingSetting DataBits = {
    {u"CCDataBitsButton", u"Data Bits", u"Label7"}, &Settings::CCDataBits, DataBitsValues};
constexpr CyclingSetting StopBits = {
    {u"CCStopBitsButton", u"Stop Bits", u"Label8"}, &Settings::CCStopBits, StopBitsValues};
constexpr CyclingSetting Flow = {
    {u"CCFlowButton", u"Flow Control", u"Label9"}, &Settings::CCFlow, FlowValues};

} // namespace captions

QString captionPortSummary(Settings& settings) {
    if (settings.CCActive == 0) {
        return captions::Active.text(settings);
    }
    for (const CyclingSetting* row :
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
