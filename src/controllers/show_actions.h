#pragma once

namespace velmora {

/// What a device does to a show. The display window implements it; ScrollSpeed and the other values
/// that a device reads are in the session.
class ShowActions {
public:
    virtual ~ShowActions() = default;
    /// A key as if typed. Both may be changed on the way; a key that was used up is 0.
    virtual void Picture1_KeyDown(int& keyCode, int& shift) = 0;
    /// Stores ScrollSpeed, limited to 0 to 255, and moves the thumb of the scale.
    virtual void setSpeed(double scrollSpeed) = 0;
};

} // namespace velmora
