#pragma once

#include "display/loop_housekeeping.h"

#include <functional>

namespace velmora {

class FrameComposer;
class Presenter;
class Session;
class ShowNavigation;
class ShowObserver;
class ShowScreen;
struct ShowTables;

/// What the loop of a show works with. All outlive it.
struct ShowLoopParts final {
    Session& session;
    ShowScreen& screen;
    const ShowTables& tables;
    FrameComposer& composer;
    ShowNavigation& navigation;
    Presenter& presenter;
    /// Asks the devices that do not tell by themselves.
    std::function<void()> pollDevices;
    LoopHousekeeping::Measured measured = LoopHousekeeping::Measured::ForwardSplitRange;
    /// May be null.
    ShowObserver* observer = nullptr;
};

/// A waiting state looks at its variables so often when nothing happens; input wakes it at once.
inline constexpr int IdleWaitMs = 20;
/// A late step is made up for at once up to here, so that the text does not visibly race: about one
/// refresh of a screen, so that the steps that make up for it lie between two pictures.
inline constexpr double MostOwedSeconds = 0.016;

} // namespace velmora
