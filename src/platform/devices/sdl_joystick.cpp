#include "platform/devices/sdl_joystick.h"

#include <QLibrary>

#include <algorithm>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace velmora {

namespace {

/// The functions of SDL2 that are used.
struct SdlFunctions final {
    decltype(&::SDL_InitSubSystem) initSubSystem = nullptr;
    decltype(&::SDL_QuitSubSystem) quitSubSystem = nullptr;
    decltype(&::SDL_SetHint) setHint = nullptr;
    decltype(&::SDL_EventState) eventState = nullptr;
    decltype(&::SDL_JoystickEventState) joystickEventState = nullptr;
    decltype(&::SDL_JoystickUpdate) joystickUpdate = nullptr;
    decltype(&::SDL_NumJoysticks) numJoysticks = nullptr;
    decltype(&::SDL_JoystickOpen) joystickOpen = nullptr;
    decltype(&::SDL_JoystickClose) joystickClose = nullptr;
    decltype(&::SDL_JoystickGetAttached) joystickGetAttached = nullptr;
    decltype(&::SDL_JoystickNumButtons) joystickNumButtons = nullptr;
    decltype(&::SDL_JoystickGetButton) joystickGetButton = nullptr;

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
        return resolve(initSubSystem, "SDL_InitSubSystem") &&
               resolve(quitSubSystem, "SDL_QuitSubSystem") && resolve(setHint, "SDL_SetHint") &&
               resolve(eventState, "SDL_EventState") &&
               resolve(joystickEventState, "SDL_JoystickEventState") &&
               resolve(joystickUpdate, "SDL_JoystickUpdate") &&
               resolve(numJoysticks, "SDL_NumJoysticks") &&
               resolve(joystickOpen, "SDL_JoystickOpen") &&
               resolve(joystickClose, "SDL_JoystickClose") &&
               resolve(joystickGetAttached, "SDL_JoystickGetAttached") &&
               resolve(joystickNumButtons, "SDL_JoystickNumButtons") &&
               resolve(joystickGetButton, "SDL_JoystickGetButton");
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
            m_sdl.quitSubSystem(SDL_INIT_JOYSTICK);
        }
    }
    Subsystem(const Subsystem&) = delete;
    Subsystem& operator=(const Subsystem&) = delete;

    std::uint32_t buttons() {
        if (!m_open) {
            return 0;
        }
        m_sdl.joystickUpdate();
        if (m_joystick != nullptr && m_sdl.joystickGetAttached(m_joystick) == SDL_FALSE) {
            close();
        }
        if (m_joystick == nullptr && m_sdl.numJoysticks() > 0) {
            m_joystick = m_sdl.joystickOpen(0);
        }
        if (m_joystick == nullptr) {
            return 0;
        }
        std::uint32_t mask = 0;
        const int count = std::min(m_sdl.joystickNumButtons(m_joystick), MaskBits);
        for (int button = 0; button < count; ++button) {
            if (m_sdl.joystickGetButton(m_joystick, button) != 0) {
                mask |= 1U << button;
            }
        }
        return mask;
    }

private:
    bool open() {
        // Signals are the program's; the pedal works whichever window has the focus; a pedal needs
        // none of the drivers that take gamepads out of the system's hands.
        m_sdl.setHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        m_sdl.setHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        m_sdl.setHint(SDL_HINT_JOYSTICK_HIDAPI, "0");
        if (m_sdl.initSubSystem(SDL_INIT_JOYSTICK) != 0) {
            return false;
        }
        // The state is polled. Nobody would ever take the events out of SDL's queue.
        m_sdl.joystickEventState(SDL_IGNORE);
        m_sdl.eventState(SDL_JOYDEVICEADDED, SDL_IGNORE);
        m_sdl.eventState(SDL_JOYDEVICEREMOVED, SDL_IGNORE);
        return true;
    }
    void close() {
        if (m_joystick != nullptr) {
            m_sdl.joystickClose(m_joystick);
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
