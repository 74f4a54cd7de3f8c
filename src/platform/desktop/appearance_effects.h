#pragma once

#include "platform/desktop/appearance_service.h"

#include <functional>

namespace velmora {

/// ClsAppearanceEffects: the desktop's visual effects as properties. A setting that cannot be read
/// is off.
class ClsAppearanceEffects final {
public:
    /// 0 none, 1 standard, 2 by subpixels.
    static constexpr int NoSmoothing = 0;
    static constexpr int SubpixelSmoothing = 2;

    explicit ClsAppearanceEffects(AppearanceService& service) : m_service(service) {}

    /// Whether changes last and are told to other programs; true at first.
    [[nodiscard]] bool SendChange() const { return m_sendChange; }
    void setSendChange(bool on) { m_sendChange = on; }

    [[nodiscard]] bool DropShadows();
    void setDropShadows(bool on);
    [[nodiscard]] bool DragFullWindows();
    void setDragFullWindows(bool on);
    [[nodiscard]] bool FontSmoothing();
    void setFontSmoothing(bool on);
    [[nodiscard]] int FontSmoothingType();
    /// Any type but 0 needs FontSmoothing, and switches it on first.
    void setFontSmoothingType(int type);
    [[nodiscard]] bool MinRestoreAnimations();
    void setMinRestoreAnimations(bool on);
    [[nodiscard]] bool MenuAnimation();
    void setMenuAnimation(bool on);
    [[nodiscard]] bool CursorShadow();
    void setCursorShadow(bool on);
    [[nodiscard]] bool MenuFade();
    /// Needs MenuAnimation, whichever way it is set, and switches it on first.
    void setMenuFade(bool on);
    [[nodiscard]] bool KeyboardCues();
    void setKeyboardCues(bool on);
    [[nodiscard]] bool UIEffects();
    void setUIEffects(bool on);

    /// Called after each setting that the desktop refused to read or to write.
    std::function<void()> EffectSettingError;

private:
    int read(AppearanceSetting setting);
    void write(AppearanceSetting setting, int value);

    AppearanceService& m_service;
    bool m_sendChange = true;
};

/// The font smoothing of the desktop around a show: smoothing by subpixels is off in between, any
/// other is not touched.
class SmoothingAroundShow final {
public:
    explicit SmoothingAroundShow(AppearanceService& service) : m_effects(service) {}

    /// When a show starts.
    void begin();
    /// When it is over. Does nothing without begin.
    void end();

private:
    ClsAppearanceEffects m_effects;
    int m_rememberedType = ClsAppearanceEffects::NoSmoothing;
};

} // namespace velmora
