#include "display/operator_keys.h"

#include "controllers/controller_buttons.h"
#include "controllers/speed_mapping.h"
#include "core/session.h"
#include "display/show_navigation.h"
#include "display/show_steering.h"
#include "platform/devices/key_numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora {

namespace {

constexpr std::array<std::pair<int, SpeedKey>, 6> SpeedKeys = {{{key::Left, SpeedKey::Left},
                                                                {key::Right, SpeedKey::Right},
                                                                {key::Up, SpeedKey::Up},
                                                                {key::Down, SpeedKey::Down},
                                                                {key::Home, SpeedKey::Home},
                                                                {key::End, SpeedKey::End}}};

/// What a key adds to the duration of a timed show, in seconds.
constexpr std::array<std::pair<int, int>, 6> DurationKeys = {{{key::Left, -1},
                                                              {key::Right, 1},
                                                              {key::Up, 10},
                                                              {key::Down, -10},
                                                              {key::PageUp, 60},
                                                              {key::PageDown, -60}}};

/// From here on a speed of Full Range stands still enough for a search.
constexpr double SearchSpeed = 250;

constexpr int AnyKey = 0;
/// Keys that a row with this Shift takes.
enum class ShiftIs { Any, Up, Down };

/// For a row that only uses a key up or makes another of it.
void nothing(OperatorKeys&, int) {}

} // namespace

/// A test of the handler: where the key, its Shift and the condition fit, the act is carried out
/// and the key becomes another one, or 0 where it was used up.
struct OperatorKeys::Row final {
    int firstKey;
    int lastKey;
    ShiftIs shift;
    bool (OperatorKeys::*when)() const;
    void (*act)(OperatorKeys& keys, int key);
    int becomes = 0;
    /// Acts again while the key is held down.
    bool repeats = false;
};

/// A looping show is unattended: the keys that steer it are dead.
const OperatorKeys::Row OperatorKeys::SteeredRows[] = {
    {key::F12, key::F12, ShiftIs::Any, &OperatorKeys::canBlank,
     [](OperatorKeys& k, int) { k.m_parts.actions.toggleBlank(); }},
    {AnyKey, AnyKey, ShiftIs::Any, &OperatorKeys::blanked, nothing},
    {key::F15, key::F21, ShiftIs::Any, nullptr, [](OperatorKeys& k, int code) { k.turnRing(code); },
     0, true},
    {key::F22, key::F22, ShiftIs::Up, nullptr, [](OperatorKeys& k, int code) { k.turnRing(code); },
     0, true},
    {key::Escape, key::Escape, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.steering.leave(); }},
    {key::F13, key::F14, ShiftIs::Up, nullptr,
     [](OperatorKeys& k, int code) { k.m_jogWheel.keyDown(code); }, 0, true},
    {key::F24, key::F24, ShiftIs::Up, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.steering.reverse(); }},
    {key::F24, key::F24, ShiftIs::Down, nullptr, nothing, key::F10},
    {key::F22, key::F22, ShiftIs::Down, &OperatorKeys::notLooping, nothing, key::PageUp},
    {key::F23, key::F23, ShiftIs::Up, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int) { k.m_parts.steering.togglePause(); }},
    {key::F23, key::F23, ShiftIs::Down, &OperatorKeys::notLooping, nothing, key::PageDown},
    {key::Digit1, key::Digit1, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.navigation.jumpTo(0); }},
    {key::Digit2, key::Digit9, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int code) {
         k.m_parts.navigation.jumpToSelectiveBookmark(code - key::Digit0);
     }},
    {key::Digit0, key::Digit0, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.navigation.jumpTo(k.m_parts.navigation.lineCount()); }},
    {key::Backspace, key::Backspace, ShiftIs::Any, &OperatorKeys::fullRange,
     [](OperatorKeys& k, int) { k.m_parts.steering.reverse(); }},
    {key::F3, key::F3, ShiftIs::Any, &OperatorKeys::canFindNext,
     [](OperatorKeys& k, int) { k.m_parts.actions.findNext(); }},
    {key::F, key::F, ShiftIs::Any, &OperatorKeys::canFind,
     [](OperatorKeys& k, int) { k.m_parts.actions.find(); }},
    {key::B, key::B, ShiftIs::Any, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int) { k.m_parts.actions.addBookmark(); }},
    {key::F9, key::F9, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.actions.toggleArrow(); }},
    {key::F10, key::F10, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.actions.toggleFullScreen(); }},
    {key::Enter, key::Enter, ShiftIs::Any, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int) { k.m_parts.steering.start(); }},
    {key::Space, key::Space, ShiftIs::Any, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int) { k.m_parts.steering.togglePause(); }},
    {key::PageUp, key::PageUp, ShiftIs::Any, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int) { k.m_session.show.BookmarkJump = bookmark_jump::Previous; }},
    {key::PageDown, key::PageDown, ShiftIs::Any, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int) { k.m_session.show.BookmarkJump = bookmark_jump::Next; }},
    {key::End, key::Down, ShiftIs::Any, &OperatorKeys::notLooping,
     [](OperatorKeys& k, int code) { k.changeSpeed(code); }, 0, true},
};

const OperatorKeys::Row OperatorKeys::TimedRows[] = {
    {key::F24, key::F24, ShiftIs::Down, nullptr, nothing, key::F10},
    {key::F23, key::F23, ShiftIs::Up, nullptr, nothing, key::Space},
    {key::Escape, key::Escape, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.steering.leave(); }},
    {key::F9, key::F9, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.actions.toggleArrow(); }},
    {key::F10, key::F10, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.actions.toggleFullScreen(); }},
    {key::Space, key::Space, ShiftIs::Any, nullptr,
     [](OperatorKeys& k, int) { k.m_parts.actions.startOrReset(); }},
    {key::PageUp, key::Down, ShiftIs::Any, &OperatorKeys::awaitingStart,
     [](OperatorKeys& k, int code) { k.changeDuration(code); }, 0, true},
};

OperatorKeys::OperatorKeys(const Parts& parts, Keyboard keyboard)
    : m_session(parts.session), m_parts(parts), m_keyboard(keyboard),
      m_jogWheel(parts.session, parts.devices) {}

void OperatorKeys::keyDown(int& keyCode, int& shift) {
    const bool steered = m_keyboard == Keyboard::Steered;
    if (steered) {
        translateWirelessKey(keyCode, m_session.settings.ControllerType);
    }
    translateControllerButton(keyCode, shift, m_session.settings);
    for (const Row& row : rows()) {
        if (keyCode != 0 && fits(row, keyCode, shift) &&
            (row.when == nullptr || (this->*row.when)())) {
            row.act(*this, keyCode);
            keyCode = row.becomes;
            shift = 0;
        }
    }
    keyCode = 0;
}

bool OperatorKeys::repeats(int keyCode, int shift) const {
    if (m_keyboard == Keyboard::Steered) {
        translateWirelessKey(keyCode, m_session.settings.ControllerType);
    }
    return std::ranges::any_of(
        rows(), [&](const Row& row) { return row.repeats && fits(row, keyCode, shift); });
}

std::span<const OperatorKeys::Row> OperatorKeys::rows() const {
    return m_keyboard == Keyboard::Steered ? std::span<const Row>(SteeredRows)
                                           : std::span<const Row>(TimedRows);
}

bool OperatorKeys::fits(const Row& row, int keyCode, int shift) {
    const bool keyFits =
        row.firstKey == AnyKey || (keyCode >= row.firstKey && keyCode <= row.lastKey);
    const bool shiftFits =
        row.shift == ShiftIs::Any || (row.shift == ShiftIs::Down) == (shift == key::Shift);
    return keyFits && shiftFits;
}

/// A script that is in the window as a whole stands, paused or not.
bool OperatorKeys::textStands() const {
    return m_session.show.PauseState > 0 || m_session.show.ReachedEnd == 1;
}

/// A screen that is blank must come back, whatever has happened to the pause meanwhile.
bool OperatorKeys::canBlank() const {
    return textStands() || m_session.show.BlankState == 1;
}

bool OperatorKeys::blanked() const {
    return m_session.show.BlankState == 1;
}

bool OperatorKeys::notLooping() const {
    return m_session.settings.AutomaticLooping != 1;
}

bool OperatorKeys::fullRange() const {
    return isFullRange(m_session.settings.ScrollSpeedControl);
}

/// A search may only begin where the text stands still.
bool OperatorKeys::canFind() const {
    const double speed = m_session.settings.ScrollSpeed;
    const bool still = textStands() || (fullRange() ? speed >= SearchSpeed : inDeadBand(speed));
    return still && notLooping();
}

bool OperatorKeys::canFindNext() const {
    return !m_session.find.LastFindText.isEmpty();
}

bool OperatorKeys::awaitingStart() const {
    return m_session.show.AwaitingStart == 1;
}

void OperatorKeys::turnRing(int code) {
    if (const auto lines = shuttleRingLines(code)) {
        m_parts.navigation.stepLines(*lines);
    }
}

void OperatorKeys::changeSpeed(int key) {
    for (const auto& [code, speedKey] : SpeedKeys) {
        if (key == code) {
            m_parts.steering.setSpeed(speedAfterKey(speedKey, m_session.settings.ScrollSpeed,
                                                    m_session.settings.ScrollSpeedControl));
        }
    }
}

void OperatorKeys::changeDuration(int key) {
    for (const auto& [code, seconds] : DurationKeys) {
        if (key == code) {
            m_parts.actions.changeDuration(seconds);
        }
    }
}

} // namespace velmora
