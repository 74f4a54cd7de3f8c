#include "display/speaker_window.h"

#include "display/place_on_display.h"

#include <QCloseEvent>
#include <QWindow>

namespace velmora {

SpeakerScriptM::SpeakerScriptM(QRgb background)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
    setWindowTitle(QStringLiteral("Velmora Speaker Display"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor::fromRgb(background));
    setPalette(colours);
    Picture1 = new TextWindow(this);
    Picture1->setFocusPolicy(Qt::NoFocus);
    Picture1->setBackground(background);
    Picture3 = new ArrowStrip(Orientation::Mirrored, this);
    Picture3->setBackground(background);
}

void SpeakerScriptM::standOn(const QRect& display, const DisplayGeometry& geometry) {
    if (display.isEmpty()) {
        hide();
        return;
    }
    Picture1->setGeometry(geometry.speakerPicture1);
    Picture3->setGeometry(geometry.speakerPicture3);
    Picture3->setShare(geometry.speakerShare);
    fillDisplay(*this, display);
}

void SpeakerScriptM::acceptKeys(bool accept) {
    const Qt::WindowFlags flags = windowFlags().setFlag(Qt::WindowDoesNotAcceptFocus, !accept);
    if (flags == windowFlags()) {
        return;
    }
    // setWindowFlag would take the window off the screen, in front of the speaker.
    overrideWindowFlags(flags);
    if (QWindow* window = windowHandle()) {
        window->setFlags(flags);
    }
}

void SpeakerScriptM::present() {
    if (isVisible()) {
        Picture1->repaint();
    }
}

void SpeakerScriptM::closeEvent(QCloseEvent* event) {
    // The loop stands on this window as on the operator's.
    Q_EMIT closeRequested();
    event->ignore();
}

} // namespace velmora
