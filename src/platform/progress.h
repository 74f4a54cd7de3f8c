#pragma once

#include <functional>

namespace velmora {

/// Asked again and again by work that may take long, with the share of it that is done, 0 to 1:
/// whether to go on. Empty where nobody watches. It has to be cheap for nearly all of its calls.
using Progress = std::function<bool(double)>;

} // namespace velmora
