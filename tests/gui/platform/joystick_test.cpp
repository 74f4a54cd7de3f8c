#include "platform/devices/sdl_joystick.h"

#include <gtest/gtest.h>

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <csignal>

namespace velmora {
namespace {

TEST(SdlJoystick, TellsWhatIsHeldAndComesAndGoesWithItsPlug) {
    // Nothing is opened before the first question.
    SdlJoystick joystick;
    ASSERT_EQ(SDL_WasInit(SDL_INIT_JOYSTICK), 0U);
    std::ignore = joystick.buttons();
    ASSERT_NE(SDL_WasInit(SDL_INIT_JOYSTICK), 0U);
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
    if (SDL_NumJoysticks() > 0) {
        GTEST_SKIP() << "A joystick is plugged into this machine; pull it out for this test.";
    }
    struct sigaction action {};
    sigaction(SIGINT, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);

    constexpr int Buttons = 12;
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_UNKNOWN, 2, Buttons, 0), 0);
        SDL_Joystick* plugged = SDL_JoystickOpen(0);
        ASSERT_NE(plugged, nullptr) << SDL_GetError();
        EXPECT_EQ(joystick.buttons(), 0U);
        for (const std::uint32_t held : {1U, 2U, 4U, 3U, 0x800U, 0U, 4U}) {
            for (int button = 0; button < Buttons; ++button) {
                const auto state = static_cast<Uint8>(held >> button & 1U);
                ASSERT_EQ(SDL_JoystickSetVirtualButton(plugged, button, state), 0);
            }
            EXPECT_EQ(joystick.buttons(), held) << round;
            EXPECT_EQ(joystick.buttons(), held) << round;
        }
        SDL_JoystickDetachVirtual(0);
        SDL_JoystickClose(plugged);
        EXPECT_EQ(joystick.buttons(), 0U);
    }
    // Years of axis noise fill nothing.
    EXPECT_EQ(SDL_PeepEvents(nullptr, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT), 0);
}

} // namespace
} // namespace velmora
