#include "platform/devices/sdl_joystick.h"
#include "support/fake_joystick.h"

#include <gtest/gtest.h>

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <csignal>

namespace velmora {
namespace {

/// What a user does to a joystick.
class Device {
public:
    virtual ~Device() = default;
    virtual void plugIn() = 0;
    virtual void pullOut() = 0;
    virtual void hold(std::uint32_t buttons) = 0;
};

class FakeDevice final : public Device {
public:
    explicit FakeDevice(FakeJoystick& joystick) : m_joystick(joystick) { pullOut(); }
    void plugIn() override { m_joystick.plugged = true; }
    void pullOut() override {
        m_joystick.plugged = false;
        m_joystick.held = 0;
    }
    void hold(std::uint32_t buttons) override { m_joystick.held = buttons; }

private:
    FakeJoystick& m_joystick;
};

/// SDL's own virtual joystick. The subsystem must be open.
class VirtualDevice final : public Device {
public:
    static constexpr int Buttons = 12;

    ~VirtualDevice() override { VirtualDevice::pullOut(); }
    void plugIn() override {
        ASSERT_EQ(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_UNKNOWN, 2, Buttons, 0), 0);
        m_joystick = SDL_JoystickOpen(0);
        ASSERT_NE(m_joystick, nullptr) << SDL_GetError();
    }
    void pullOut() override {
        if (m_joystick != nullptr) {
            SDL_JoystickDetachVirtual(0);
            SDL_JoystickClose(m_joystick);
            m_joystick = nullptr;
        }
    }
    void hold(std::uint32_t buttons) override {
        for (int button = 0; button < Buttons; ++button) {
            const auto pressed = static_cast<Uint8>(buttons >> button & 1U);
            ASSERT_EQ(SDL_JoystickSetVirtualButton(m_joystick, button, pressed), 0);
        }
    }

private:
    SDL_Joystick* m_joystick = nullptr;
};

void expectContract(Joystick& joystick, Device& device) {
    EXPECT_EQ(joystick.buttons(), 0U);
    for (int round = 0; round < 2; ++round) {
        device.plugIn();
        EXPECT_EQ(joystick.buttons(), 0U);
        for (const std::uint32_t held : {1U, 2U, 4U, 3U, 0x800U, 0U, 4U}) {
            device.hold(held);
            EXPECT_EQ(joystick.buttons(), held) << round;
            EXPECT_EQ(joystick.buttons(), held) << round;
        }
        device.pullOut();
        EXPECT_EQ(joystick.buttons(), 0U);
    }
}

TEST(JoystickContract, TheFakeTellsWhatIsHeld) {
    FakeJoystick joystick;
    FakeDevice device(joystick);
    expectContract(joystick, device);
}

TEST(JoystickContract, SdlTellsWhatIsHeld) {
    // Nothing is opened before the first question.
    SdlJoystick joystick;
    ASSERT_EQ(SDL_WasInit(SDL_INIT_JOYSTICK), 0U);
    std::ignore = joystick.buttons();
    ASSERT_NE(SDL_WasInit(SDL_INIT_JOYSTICK), 0U);
    if (SDL_NumJoysticks() > 0) {
        GTEST_SKIP() << "A joystick is plugged into this machine; pull it out for this test.";
    }
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
    struct sigaction action {};
    sigaction(SIGINT, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
    VirtualDevice device;
    expectContract(joystick, device);
    // Years of axis noise fill nothing.
    EXPECT_EQ(SDL_PeepEvents(nullptr, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT), 0);
}

} // namespace
} // namespace velmora
