#pragma once

#include <QString>

namespace velmora {

class Session;

/// The editor's width slider as the check sees it and leaves it.
struct ColumnSlider final {
    int minimum = 12;
    int maximum = 320;
    int value = 12;

    bool operator==(const ColumnSlider&) const = default;
};

/// What the check asks of its caller: a slider to set, whose minimum never breaks a word of the
/// script that is whole in the widest column, a message to show with the stop icon.
struct TwoDisplayCheck final {
    ColumnSlider slider;
    bool messageDue = false;
};

/// At start, to be run when MirrorMode is mirror::TwoDisplays: with a display 2 narrower than
/// display 1 the slider's minimum, and its value if needed, rise to the first margin whose column
/// fits display 2. Without a display 2 the message is due and the slider stays. Queries both
/// displays.
[[nodiscard]] TwoDisplayCheck checkTwoDisplaysAtStart(Session& session, const ColumnSlider& slider);

/// After the setup window: a MirrorMode that changed to 4 is checked as at start, but with a
/// display 1 that is not wider the minimum returns to 12; one that changed to something else
/// returns the minimum to 12; an unchanged one changes nothing.
[[nodiscard]] TwoDisplayCheck
checkTwoDisplaysAfterSetup(Session& session, const ColumnSlider& slider, int mirrorModeBefore);

/// Where the script may have other words than at the last check. Unchanged without two displays.
[[nodiscard]] ColumnSlider checkTwoDisplaysAgain(Session& session, const ColumnSlider& slider);

[[nodiscard]] QString displayMissingTitle();
/// The message of the start and of the setup window.
[[nodiscard]] QString displayMissingText();

} // namespace velmora
