#include "display/operator_window.h"

namespace velmora {

Form4::Form4(Session& session, ShowObserver* observer)
    : DisplayWindow(session, DisplayTraits{}, observer) {}

} // namespace velmora
