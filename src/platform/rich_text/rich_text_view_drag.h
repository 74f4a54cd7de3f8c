#pragma once

#include "platform/rich_text/rich_text_view_core.h"

#include <optional>

class QDrag;
class QDragMoveEvent;
class QDropEvent;

namespace velmora {

/// Drag and drop of text: out of the view, inside of it, and into it. Owned by the view.
///
/// Inside the view a drag moves the text, with the Control key it copies. Text that leaves the view
/// as a move is deleted here. Files are not accepted: they go on to the window.
class DragHandler final {
public:
    /// Runs a drag with the actions that it may end in, the usual one last, and tells which it was.
    using Runner = std::function<Qt::DropAction(QDrag&, Qt::DropActions, Qt::DropAction)>;

    /// Without a runner, QDrag runs the drags, in an event loop of its own.
    explicit DragHandler(ViewCore& core, Runner runner = {});

    /// Drags the selection until it is dropped somewhere.
    void drag();

    /// Accepts the event if there is text in it that may be dropped here.
    void over(QDragMoveEvent& event);
    void leave();
    void drop(QDropEvent& event);

    /// Where the text would be dropped now: a position of the document.
    [[nodiscard]] std::optional<int> dropPosition() const { return m_dropPosition; }

private:
    void setDropPosition(std::optional<int> position);
    void moveSelectionTo(int position);
    void copySelectionTo(int position);

    ViewCore& m_core;
    Runner m_run;
    std::optional<int> m_dropPosition;
    /// The drag that goes on began in this view.
    bool m_ownDrag = false;
    /// That drag has been dropped here, so nothing is left to delete.
    bool m_droppedHere = false;
};

} // namespace velmora
