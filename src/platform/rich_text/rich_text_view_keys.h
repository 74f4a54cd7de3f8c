#pragma once

#include "platform/rich_text/rich_text_view_core.h"

#include <optional>

class QKeyEvent;

namespace velmora {

/// What the clipboard keys call; the view's public operations.
struct ClipboardActions final {
    std::function<void()> copy;
    std::function<void()> cut;
    std::function<void()> paste;
};

/// The keyboard of the editor view: moving, selecting, deleting, typing. Owned by the view.
class KeyHandler final {
public:
    KeyHandler(ViewCore& core, ClipboardActions clipboard)
        : m_core(core), m_clipboard(std::move(clipboard)) {}

    /// Acts on a key; false if the key means nothing here and may go on to the window.
    bool handleKey(QKeyEvent& event);
    /// Whether the view wants a key for itself that may also be a shortcut of the window.
    [[nodiscard]] bool claims(const QKeyEvent& event) const;

private:
    enum class Step;
    struct MoveBinding;
    struct EditBinding;

    [[nodiscard]] static const MoveBinding* moveBinding(const QKeyEvent& event,
                                                        SelectionMode& mode);
    [[nodiscard]] static const EditBinding* editBinding(const QKeyEvent& event);
    [[nodiscard]] static bool isTyping(const QKeyEvent& event);

    void move(const MoveBinding& binding, SelectionMode mode);
    /// In the order of the text.
    void moveLogically(const MoveBinding& binding, SelectionMode mode);
    /// To the left or the right.
    void moveBeside(const MoveBinding& binding, SelectionMode mode);
    /// The end of the selection that lies more to a side.
    [[nodiscard]] int selectionEndOn(Side side) const;
    /// Nothing where there is no line to go to.
    [[nodiscard]] std::optional<int> verticalTarget(Step step);
    void scrollByPage(Step step);
    void deleteBackward();
    void deleteForward();
    void deleteWord(Step step);
    void removeSelectionOr(int other);

    ViewCore& m_core;
    ClipboardActions m_clipboard;
    /// Where the caret wants to be on its line while it goes up and down, in reference units.
    double m_wantedX = 0;
    /// Where the last vertical move left the caret; anywhere else the wanted place is taken anew.
    std::optional<int> m_lastVertical;
};

} // namespace velmora
