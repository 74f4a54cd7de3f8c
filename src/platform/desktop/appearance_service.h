#pragma once

#include <optional>

namespace velmora {

/// What a desktop lets a program set about its looks.
enum class AppearanceSetting {
    DropShadows,
    DragFullWindows,
    FontSmoothing,
    FontSmoothingType,
    MinRestoreAnimations,
    MenuAnimation,
    CursorShadow,
    MenuFade,
    KeyboardCues,
    UIEffects
};

/// The desktop's visual effects. Switches are 0 or 1, the type of smoothing 0 to 2.
class AppearanceService {
public:
    virtual ~AppearanceService() = default;
    /// No value where the desktop refuses.
    [[nodiscard]] virtual std::optional<int> read(AppearanceSetting setting) = 0;
    /// keep stores the value in the user's profile and tells the other programs. False where the
    /// desktop refuses.
    [[nodiscard]] virtual bool write(AppearanceSetting setting, int value, bool keep) = 0;
};

/// For desktops on which these settings do not concern the program: its text is greyscale wherever
/// it is drawn. Everything reads as off, and a write does nothing.
class NoAppearanceService final : public AppearanceService {
public:
    [[nodiscard]] std::optional<int> read(AppearanceSetting) override { return 0; }
    [[nodiscard]] bool write(AppearanceSetting, int, bool) override { return true; }
};

} // namespace velmora
