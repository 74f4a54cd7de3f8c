#pragma once

#include "display/frame_composer.h"

namespace velmora {

/// Every difference between the display windows is a named field here.
///
/// | window | PreparationMode | operatorPicture |
/// |--------|-----------------|-----------------|
/// | Form4  | 1               | Plain           |
struct DisplayTraits final {
    /// Which window runs the show, as the preparation numbers them.
    int PreparationMode = 1;
    /// How the operator's own picture shows the rows.
    Orientation operatorPicture = Orientation::Plain;
};

} // namespace velmora
