#pragma once

namespace velmora {

/// Left to right, or flipped for whoever reads in a mirror.
enum class Orientation { Plain, Mirrored };

/// Every difference between the display windows is a named field here.
///
/// | window | face     | timed |
/// |--------|----------|-------|
/// | Form4  | Plain    | no    |
/// | Form20 | Mirrored | no    |
/// | Form22 | Plain    | yes   |
/// | Form25 | Mirrored | yes   |
struct DisplayTraits final {
    /// What the operator's screen shows: the text, the control row, and the last question.
    Orientation face = Orientation::Plain;
    /// The pace follows from a duration; nobody steers.
    bool timed = false;
};

} // namespace velmora
