#pragma once

#include "display/display_window.h"

namespace velmora {

/// Form4: the operator's display window, steered by hand.
class Form4 final : public DisplayWindow {
public:
    static constexpr DisplayTraits Traits{Orientation::Plain, false};
    explicit Form4(Session& session, ShowObserver* observer = nullptr)
        : DisplayWindow(session, Traits, observer) {}
};

/// Form20: the same, read in a mirror: the operator's own screen is the flipped one.
class Form20 final : public DisplayWindow {
public:
    static constexpr DisplayTraits Traits{Orientation::Mirrored, false};
    explicit Form20(Session& session, ShowObserver* observer = nullptr)
        : DisplayWindow(session, Traits, observer) {}
};

/// Form22: the display window of a timed show.
class Form22 final : public DisplayWindow {
public:
    static constexpr DisplayTraits Traits{Orientation::Plain, true};
    explicit Form22(Session& session, ShowObserver* observer = nullptr)
        : DisplayWindow(session, Traits, observer) {}
};

/// Form25: the same, read in a mirror.
class Form25 final : public DisplayWindow {
public:
    static constexpr DisplayTraits Traits{Orientation::Mirrored, true};
    explicit Form25(Session& session, ShowObserver* observer = nullptr)
        : DisplayWindow(session, Traits, observer) {}
};

} // namespace velmora
