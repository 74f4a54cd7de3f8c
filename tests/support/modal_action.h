#pragma once

#include <functional>
#include <memory>

class QWidget;
class QTimer;

namespace velmora {

/// Acts on the next modal window as a user would, from inside its event loop, once it is shown.
/// When the window is still open half a minute later it is closed and expired() tells so: a test
/// then fails instead of hanging.
class ModalAction final {
public:
    explicit ModalAction(std::function<void(QWidget&)> action);
    ~ModalAction();

    /// The action has run.
    [[nodiscard]] bool done() const { return m_done; }
    [[nodiscard]] bool expired() const { return m_expired; }

private:
    void look();

    std::function<void(QWidget&)> m_action;
    std::unique_ptr<QTimer> m_timer;
    int m_looks = 0;
    bool m_done = false;
    bool m_expired = false;
};

/// Clicks the button with this caption (an "&" is ignored); fails the test when there is none.
void clickButton(QWidget& window, const char16_t* caption);

} // namespace velmora
