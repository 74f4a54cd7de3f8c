#pragma once

#include "controllers/shuttle_wheel.h"

#include <span>

namespace velmora {

class Session;
class ShowActions;
class ShowNavigation;
class ShowSteering;

/// What the keys of a show do to its window, beyond its motion. The display window implements it.
class OperatorActions {
public:
    virtual ~OperatorActions() = default;
    virtual void addBookmark() = 0;
    virtual void find() = 0;
    virtual void findNext() = 0;
    virtual void toggleBlank() = 0;
    virtual void toggleArrow() = 0;
    virtual void toggleFullScreen() = 0;
    /// Of a timed show.
    virtual void startOrReset() = 0;
    /// Of a timed show that awaits its start; limited like the duration bar.
    virtual void changeDuration(int seconds) = 0;
};

/// The keys of a running show, by virtual-key number and Shift, tested in a fixed order. A branch
/// usually uses the key up; one that only rewrites it lets the later tests see the new key.
class OperatorKeys final {
public:
    enum class Keyboard { Steered, Timed };

    /// What it works with; all outlive it.
    struct Parts final {
        Session& session;
        ShowSteering& steering;
        ShowNavigation& navigation;
        OperatorActions& actions;
        /// The window as its devices see it.
        ShowActions& devices;
    };
    OperatorKeys(const Parts& parts, Keyboard keyboard);

    /// Carries out a key. shift is 1 with the Shift key, else 0. keyCode is 0 behind it, whether
    /// the key was one of the show's or not.
    void keyDown(int& keyCode, int& shift);
    /// Whether the key acts again and again while it is held down: a change of speed or a step of
    /// the shuttle does, a toggle or a jump does not.
    [[nodiscard]] bool repeats(int keyCode, int shift) const;

private:
    struct Row;
    [[nodiscard]] std::span<const Row> rows() const;
    [[nodiscard]] static bool fits(const Row& row, int keyCode, int shift);

    [[nodiscard]] bool textStands() const;
    [[nodiscard]] bool canBlank() const;
    [[nodiscard]] bool blanked() const;
    [[nodiscard]] bool notLooping() const;
    [[nodiscard]] bool fullRange() const;
    [[nodiscard]] bool canFind() const;
    [[nodiscard]] bool canFindNext() const;
    [[nodiscard]] bool awaitingStart() const;
    void turnRing(int code);
    void changeSpeed(int key);
    void changeDuration(int key);

    static const Row SteeredRows[];
    static const Row TimedRows[];

    Session& m_session;
    Parts m_parts;
    Keyboard m_keyboard;
    JogWheel m_jogWheel;
};

} // namespace velmora
