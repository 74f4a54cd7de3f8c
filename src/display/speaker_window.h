#pragma once

#include "display/cue_arrow.h"
#include "display/display_geometry.h"
#include "display/text_window.h"

#include <QWidget>

namespace velmora {

/// SpeakerScriptM: the speaker's window on display 2, flipped for a mirror. It has no will of its
/// own: the operator's window owns it, paints it in the same turn as its own picture, and gets the
/// keys that come here while the operator has no display.
class SpeakerScriptM final : public QWidget {
    Q_OBJECT
public:
    explicit SpeakerScriptM(QRgb background);

    /// Stands on a display, filling it; an empty rectangle hides the window until the display is
    /// there again. The picture stands in the display's middle, shrunk where that is too small.
    void standOn(const QRect& display, const DisplayGeometry& geometry);
    /// Whether the window can have the keys. It never asks for them itself.
    void acceptKeys(bool accept);
    /// Paints the picture at once.
    void present();

    TextWindow* Picture1 = nullptr;
    ArrowStrip* Picture3 = nullptr;

Q_SIGNALS:
    /// The window was closed from outside, which it refuses.
    void closeRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
};

} // namespace velmora
