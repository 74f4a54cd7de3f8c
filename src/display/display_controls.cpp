#include "display/display_controls.h"

#include <utility>

namespace velmora {

namespace {

constexpr int ClockPoints = 12;
constexpr int CaptionPoints = 8;

QScrollBar* createScrollBar(Qt::Orientation direction, QWidget* window) {
    auto* bar = new QScrollBar(direction, window);
    bar->setFocusPolicy(Qt::NoFocus);
    // A context menu is a loop of its own, in which the show would stand still.
    bar->setContextMenuPolicy(Qt::NoContextMenu);
    return bar;
}

} // namespace

DisplayControls::DisplayControls(const DisplayTraits& traits, QWidget* window) : m_traits(traits) {
    const auto text = [&](const char16_t* words, int points) {
        return new ShowText(QString::fromUtf16(words), points, traits.face, window);
    };
    const auto button = [&](const char16_t* words) {
        return new ShowButton(QString::fromUtf16(words), traits.face, window);
    };
    Picture3 = new ArrowStrip(traits.face, window);
    Picture4 = new ShowMark(ShowMark::Kind::Forward, window);
    Picture5 = new ShowMark(ShowMark::Kind::Backward, window);
    Picture6 = new SpeedScale(traits.face, window);
    Picture7 = new ShowMark(ShowMark::Kind::Notice, window);
    Label1 = text(u"00:00", ClockPoints);
    Label2 = text(u"Duration:", CaptionPoints);
    Label3 = text(u"00:00", ClockPoints);
    Label4 = text(u"00:00", ClockPoints);
    Label5 = text(u"Remaining:", CaptionPoints);
    Label6 = text(u"Elapsed:", CaptionPoints);
    Hscroll1 = createScrollBar(Qt::Horizontal, window);
    Vscroll1 = createScrollBar(Qt::Vertical, window);
    Vscroll2 = new UpDown(window);
    Command1 = button(u"Start");
    Command2 = button(u"Reset");
    Command3 = button(u"Exit");
    Hscroll1->setInvertedAppearance(traits.face == Orientation::Mirrored);
    nameControls();
}

/// By these names the windows' controls are known outside.
void DisplayControls::nameControls() {
    const std::pair<QWidget*, const char*> names[] = {
        {Picture3, "Picture3"}, {Picture4, "Picture4"}, {Picture5, "Picture5"},
        {Picture6, "Picture6"}, {Picture7, "Picture7"}, {Label1, "Label1"},
        {Label2, "Label2"},     {Label3, "Label3"},     {Label4, "Label4"},
        {Label5, "Label5"},     {Label6, "Label6"},     {Hscroll1, "Hscroll1"},
        {Vscroll1, "Vscroll1"}, {Vscroll2, "Vscroll2"}, {Command1, "Command1"},
        {Command2, "Command2"}, {Command3, "Command3"}};
    for (const auto& [control, name] : names) {
        control->setObjectName(QString::fromLatin1(name));
    }
    Hscroll1->setAccessibleName(QStringLiteral("Duration"));
    Vscroll1->setAccessibleName(QStringLiteral("Place In The Script"));
    Vscroll2->setAccessibleName(QStringLiteral("Cue Arrow"));
    Picture6->setAccessibleName(QStringLiteral("Speed"));
}

void DisplayControls::place(const DisplayGeometry& geometry) {
    Picture3->setGeometry(geometry.Picture3);
    Picture3->setShare(geometry.share);
    for (QWidget* mark : {Picture4, Picture5, Picture7}) {
        mark->setGeometry(geometry.directionMark);
    }
    Picture6->setGeometry(geometry.Picture6);
    for (ShowText* text : {Label1, Label2, Label3, Label4, Label5, Label6}) {
        text->setUnit(geometry.controlUnit);
    }
    Label1->setGeometry(geometry.Label1);
    Label2->setGeometry(geometry.Label2);
    Label3->setGeometry(geometry.Label3);
    Label4->setGeometry(geometry.Label4);
    Label5->setGeometry(geometry.Label5);
    Label6->setGeometry(geometry.Label6);
    Hscroll1->setGeometry(geometry.Hscroll1);
    Vscroll1->setGeometry(geometry.Vscroll1);
    Vscroll2->setGeometry(geometry.Vscroll2);
    Command1->setGeometry(geometry.Command1);
    Command2->setGeometry(geometry.Command1);
    Command3->setGeometry(geometry.Command3);
}

void DisplayControls::show(const ControlsInSight& inSight) {
    const bool row = inSight.row;
    const bool steered = row && !m_traits.timed;
    const bool timed = row && m_traits.timed;
    for (QWidget* always :
         std::initializer_list<QWidget*>{Label1, Label4, Label5, Label6, Vscroll1}) {
        always->setVisible(row);
    }
    for (QWidget* pressed : std::initializer_list<QWidget*>{Vscroll2, Command3}) {
        pressed->setVisible(row && !inSight.pointerCaught);
    }
    Picture6->setVisible(steered);
    Picture4->setVisible(steered && inSight.direction > 0);
    Picture5->setVisible(steered && inSight.direction < 0);
    Picture7->setVisible(steered && inSight.notice);
    Picture7->raise();
    Label2->setVisible(timed);
    Label3->setVisible(timed);
    Hscroll1->setVisible(timed && !inSight.running);
    Command1->setVisible(timed && inSight.awaitingStart);
    Command2->setVisible(timed && !inSight.awaitingStart);
    Picture3->setVisible(inSight.arrow);
}

} // namespace velmora
