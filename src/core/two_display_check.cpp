#include "core/two_display_check.h"

#include "core/arrangement.h"
#include "core/display_rects.h"
#include "core/screen_scale.h"
#include "core/session.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr double ReferenceWidth = 640;
/// What the display's own frame and controls take of its width, in pixels.
constexpr int DisplayExtras = 53;

/// The widest margin at which no word breaks that is whole in the widest column.
int mostMarginForWords(const RichTextBox& script) {
    constexpr double roundedUp = 0.5;
    const double widest = script.widestWord(wrapWidthForMargin(MinColumnMargin));
    return widest == 0 ? MaxColumnMargin : marginForWrapWidth(widest + roundedUp);
}

/// The slider with its minimum at the first margin whose column fits a display; at the widest one
/// where none does. It stops short of that where a word would break: from there on the picture is
/// made smaller for the display.
ColumnSlider fittedTo(int displayWidth, const Session& session, ColumnSlider slider) {
    const double scaleX = session.screen.ScaleX;
    const auto fits = [&](int margin) {
        return scaleX * ReferenceWidth - scaleX * margin <= displayWidth - DisplayExtras;
    };
    while (slider.minimum < slider.maximum && !fits(slider.minimum)) {
        ++slider.minimum;
    }
    if (slider.minimum > MinColumnMargin) {
        slider.minimum =
            std::clamp(mostMarginForWords(session.script.rtb1), MinColumnMargin, slider.minimum);
    }
    slider.value = std::max(slider.value, slider.minimum);
    return slider;
}

enum class NarrowerFirst { KeepsMinimum, ResetsMinimum };

TwoDisplayCheck check(Session& session, const ColumnSlider& slider, NarrowerFirst otherwise) {
    GetDisplayRect(session, 1);
    const int firstWidth = session.displays.DisplayWidth;
    GetDisplayRect(session, 2);
    TwoDisplayCheck result{slider, false};
    if (!displayFound(session)) {
        result.messageDue = true;
    } else if (firstWidth > session.displays.DisplayWidth) {
        result.slider = fittedTo(session.displays.DisplayWidth, session, slider);
    } else if (otherwise == NarrowerFirst::ResetsMinimum) {
        result.slider.minimum = MinColumnMargin;
    }
    return result;
}

} // namespace

TwoDisplayCheck checkTwoDisplaysAtStart(Session& session, const ColumnSlider& slider) {
    return check(session, slider, NarrowerFirst::KeepsMinimum);
}

TwoDisplayCheck checkTwoDisplaysAfterSetup(Session& session, const ColumnSlider& slider,
                                           int mirrorModeBefore) {
    const int mirrorMode = session.settings.MirrorMode;
    if (mirrorMode == mirrorModeBefore) {
        return {slider, false};
    }
    if (mirrorMode == mirror::TwoDisplays) {
        return check(session, slider, NarrowerFirst::ResetsMinimum);
    }
    TwoDisplayCheck result{slider, false};
    result.slider.minimum = MinColumnMargin;
    return result;
}

ColumnSlider checkTwoDisplaysAgain(Session& session, const ColumnSlider& slider) {
    if (session.settings.MirrorMode != mirror::TwoDisplays) {
        return slider;
    }
    ColumnSlider widest = slider;
    widest.minimum = MinColumnMargin;
    // Held by the last check, it moves with the limit.
    widest.value = slider.value == slider.minimum ? MinColumnMargin : slider.value;
    const TwoDisplayCheck result = check(session, widest, NarrowerFirst::KeepsMinimum);
    return result.messageDue ? slider : result.slider;
}

QString displayMissingTitle() {
    return QStringLiteral("Display 2 Not Available");
}

QString displayMissingText() {
    return QStringLiteral(
        "I can only detect 1 available display, and you have specified two displays in the Setup.  "
        "Please enable Display 2 using the Display Properties Settings, or select a single monitor "
        "setting in the Setup Menu.");
}

} // namespace velmora
