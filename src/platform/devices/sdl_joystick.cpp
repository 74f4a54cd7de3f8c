#include "platform/devices/sdl_joystick.h"

#include <QLibrary>

#include <algorithm>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace velmora {

namespace {

/// The functions of SDL2 that are used, under their own names.
struct SdlFunctions final {
    decltype(&::SDL_InitSubSystem) SDL_InitSubSystem = nullptr;
    decltype(&::SDL_QuitSubSystem) SDL_QuitSubSystem = nullptr;
    decltype(&::SDL_SetHint) SDL_SetHint = nullptr;
    decltype(&::SDL_EventState) SDL_EventState = nullptr;
    decltype(&::SDL_JoystickEventState) SDL_JoystickEventState = nullptr;
    decltype(&::SDL_JoystickUpdate) SDL_JoystickUpdate = nullptr;
    decltype(&::SDL_NumJoysticks) SDL_NumJoysticks = nullptr;
    decltype(&::SDL_JoystickOpen) SDL_JoystickOpen = nullptr;
    decltype(&::SDL_JoystickClose) SDL_JoystickClose = nullptr;
    decltype(&::SDL_JoystickGetAttached) SDL_JoystickGetAttached = nullptr;
    decltype(&::SDL_JoystickNumButtons) SDL_JoystickNumButtons = nullptr;
    decltype(&::SDL_JoystickGetButton) SDL_JoystickGetButton = nullptr;

    /// False where the library or one of the functions is not there.
    [[nodiscard]] bool load() {
        QLibrary library(QStringLiteral("SDL2-2.0"), 0);
        if (!library.load()) {
            library.setFileName(QStringLiteral("SDL2"));
        }
        const auto resolve = [&library](auto& function, const char* name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                library.resolve(name));
            return function != nullptr;
        };
        return resolve(SDL_InitSubSystem, "SDL_InitSubSystem") &&
               resolve(SDL_QuitSubSystem, "SDL_QuitSubSystem") &&
               resolve(SDL_SetHint, "SDL_SetHint") && resolve(SDL_EventState, "SDL_EventState") &&
               resolve(SDL_JoystickEventState, "SDL_JoystickEventState") &&
               resolve(SDL_JoystickUpdate, "SDL_JoystickUpdate") &&
               resolve(SDL_NumJoysticks, "SDL_NumJoysticks") &&
               resolve(SDL_JoystickOpen, "SDL_JoystickOpen") &&
               resolve(SDL_JoystickClose, "SDL_JoystickClose") &&
               resolve(SDL_JoystickGetAttached, "SDL_JoystickGetAttached") &&
               resolve(SDL_JoystickNumButtons, "SDL_JoystickNumButtons") &&
               resolve(SDL_JoystickGetButton, "SDL_JoystickGetButton");
    }
};

constexpr int MaskBits = 32;

} // namespace

/// SDL's joystick subsystem, and the joystick that is open.
class SdlJoystick::Subsystem final {
public:
    Subsystem() : m_open(m_sdl.load() && open()) {}
    ~Subsystem() {
        if (m_open) {
            close();
            m_sdl.SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
        }
    }
    Subsystem(const Subsystem&) = delete;
    Subsystem& operator=(const Subsystem&) = delete;

    std::uint32_t buttons() {
        if (!m_open) {
            return 0;
        }
        m_sdl.SDL_JoystickUpdate();
        if (m_joystick != nullptr && m_sdl.SDL_JoystickGetAttached(m_joystick) == SDL_FALSE) {
            close();
        }
        if (m_joystick == nullptr && m_sdl.SDL_NumJoysticks() > 0) {
            m_joystick = m_sdl.SDL_JoystickOpen(0);
        }
        if (m_joystick == nullptr) {
            return 0;
        }
        std::uint32_t mask = 0;
        const int count = std::min(m_sdl.SDL_JoystickNumButtons(m_joystick), MaskBits);
        for (int button = 0; button < count; ++button) {
            if (m_sdl.SDL_JoystickGetButton(m_joystick, button) != 0) {
                mask |= 1U << button;
            }
        }
        return mask;
    }

private:
    bool open() {
        // Signals are the program's; the pedal works whichever window has the focus; a pedal needs
        // none of the drivers that take gamepads out of the system's hands.
        m_sdl.SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        m_sdl.SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        m_sdl.SDL_SetHint(SDL_HINT_JOYSTICK_HIDAPI, "0");
        if (m_sdl.SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) {
            return false;
        }
        // The state is polled. Nobody would ever take the events out of SDL's queue.
        m_sdl.SDL_JoystickEventState(SDL_IGNORE);
        m_sdl.SDL_EventState(SDL_JOYDEVICEADDED, SDL_IGNORE);
        m_sdl.SDL_EventState(SDL_JOYDEVICEREMOVED, SDL_IGNORE);
        return true;
    }
    void close() {
        if (m_joystick != nullptr) {
            m_sdl.SDL_JoystickClose(m_joystick);
            m_joystick = nullptr;
        }
    }

    SdlFunctions m_sdl;
    bool m_open;
    SDL_Joystick* m_joystick = nullptr;
};

SdlJoystick::SdlJoystick() = default;
SdlJoystick::~SdlJoystick() = default;

std::uint32_t SdlJoystick::buttons() {
    if (m_subsystem == nullptr) {
        m_subsystem = std::make_unique<Subsystem>();
    }
    return m_subsystem->buttons();
}

} // namespace velmora
