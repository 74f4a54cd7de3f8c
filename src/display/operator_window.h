#pragma once

#include "display/display_window.h"

namespace velmora {

/// Form4: the operator's display window, unmirrored and steered by hand.
class Form4 final : public DisplayWindow {
    Q_OBJECT
public:
    explicit Form4(Session& session, ShowObserver* observer = nullptr);
};

} // namespace velmora
