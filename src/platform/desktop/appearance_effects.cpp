#include "platform/desktop/appearance_effects.h"

namespace velmora {

bool ClsAppearanceEffects::DropShadows() {
    return read(AppearanceSetting::DropShadows) != 0;
}

void ClsAppearanceEffects::setDropShadows(bool on) {
    write(AppearanceSetting::DropShadows, on ? 1 : 0);
}

bool ClsAppearanceEffects::DragFullWindows() {
    return read(AppearanceSetting::DragFullWindows) != 0;
}

void ClsAppearanceEffects::setDragFullWindows(bool on) {
    write(AppearanceSetting::DragFullWindows, on ? 1 : 0);
}

bool ClsAppearanceEffects::FontSmoothing() {
    return read(AppearanceSetting::FontSmoothing) != 0;
}

void ClsAppearanceEffects::setFontSmoothing(bool on) {
    write(AppearanceSetting::FontSmoothing, on ? 1 : 0);
}

int ClsAppearanceEffects::FontSmoothingType() {
    return read(AppearanceSetting::FontSmoothingType);
}

void ClsAppearanceEffects::setFontSmoothingType(int type) {
    if (type != NoSmoothing) {
        setFontSmoothing(true);
    }
    write(AppearanceSetting::FontSmoothingType, type);
}

bool ClsAppearanceEffects::MinRestoreAnimations() {
    return read(AppearanceSetting::MinRestoreAnimations) != 0;
}

void ClsAppearanceEffects::setMinRestoreAnimations(bool on) {
    write(AppearanceSetting::MinRestoreAnimations, on ? 1 : 0);
}

bool ClsAppearanceEffects::MenuAnimation() {
    return read(AppearanceSetting::MenuAnimation) != 0;
}

void ClsAppearanceEffects::setMenuAnimation(bool on) {
    write(AppearanceSetting::MenuAnimation, on ? 1 : 0);
}

bool ClsAppearanceEffects::CursorShadow() {
    return read(AppearanceSetting::CursorShadow) != 0;
}

void ClsAppearanceEffects::setCursorShadow(bool on) {
    write(AppearanceSetting::CursorShadow, on ? 1 : 0);
}

bool ClsAppearanceEffects::MenuFade() {
    return read(AppearanceSetting::MenuFade) != 0;
}

void ClsAppearanceEffects::setMenuFade(bool on) {
    setMenuAnimation(true);
    write(AppearanceSetting::MenuFade, on ? 1 : 0);
}

bool ClsAppearanceEffects::KeyboardCues() {
    return read(AppearanceSetting::KeyboardCues) != 0;
}

void ClsAppearanceEffects::setKeyboardCues(bool on) {
    write(AppearanceSetting::KeyboardCues, on ? 1 : 0);
}

bool ClsAppearanceEffects::UIEffects() {
    return read(AppearanceSetting::UIEffects) != 0;
}

void ClsAppearanceEffects::setUIEffects(bool on) {
    write(AppearanceSetting::UIEffects, on ? 1 : 0);
}

int ClsAppearanceEffects::read(AppearanceSetting setting) {
    const std::optional<int> value = m_service.read(setting);
    if (!value && EffectSettingError) {
        EffectSettingError();
    }
    return value.value_or(0);
}

void ClsAppearanceEffects::write(AppearanceSetting setting, int value) {
    if (!m_service.write(setting, value, m_sendChange) && EffectSettingError) {
        EffectSettingError();
    }
}

void SmoothingAroundShow::begin() {
    m_rememberedType = m_effects.FontSmoothingType();
    if (m_rememberedType == ClsAppearanceEffects::SubpixelSmoothing) {
        m_effects.setFontSmoothingType(ClsAppearanceEffects::NoSmoothing);
        m_effects.setFontSmoothing(false);
    }
}

void SmoothingAroundShow::end() {
    if (m_rememberedType == ClsAppearanceEffects::SubpixelSmoothing) {
        m_effects.setFontSmoothing(true);
        m_effects.setFontSmoothingType(m_rememberedType);
    }
    m_rememberedType = ClsAppearanceEffects::NoSmoothing;
}

} // namespace velmora
