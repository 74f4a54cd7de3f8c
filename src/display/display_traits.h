#pragma once

#include "display/frame_composer.h"

namespace velmora {

/// Every difference between the display windows is a named field here.
///
/// | window | operatorPicture |
/// |--------|-----------------|
/// | Form4  | Plain           |
struct DisplayTraits final {
    /// How the operator's own picture shows the rows.
    Orientation operatorPicture = Orientation::Plain;
};

} // namespace velmora
