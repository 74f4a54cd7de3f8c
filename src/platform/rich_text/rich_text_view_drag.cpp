#include "platform/rich_text/rich_text_view_drag.h"

#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_view_clipboard.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace velmora {

namespace {

/// Rows at the upper and lower edge in which a drag scrolls the view, at most.
constexpr int ScrollMargin = 24;

} // namespace

DragHandler::DragHandler(ViewCore& core, Runner runner) : m_core(core), m_run(std::move(runner)) {
    if (!m_run) {
        m_run = [](QDrag& drag, Qt::DropActions actions, Qt::DropAction usual) {
            return drag.exec(actions, usual);
        };
    }
}

void DragHandler::drag() {
    std::unique_ptr<QMimeData> data = m_core.selectionData();
    if (!data) {
        return;
    }
    const int start = m_core.selectionStart();
    const int end = m_core.selectionEnd();
    const QString dragged = m_core.box().SelText();
    const QPointer<QWidget> viewport(&m_core.viewport());
    auto* drag = new QDrag(viewport);
    drag->setMimeData(data.release());
    const Qt::DropActions actions =
        m_core.isReadOnly() ? Qt::CopyAction : Qt::DropActions(Qt::CopyAction | Qt::MoveAction);
    m_ownDrag = true;
    m_droppedHere = false;
    const Qt::DropAction result =
        m_run(*drag, actions, m_core.isReadOnly() ? Qt::CopyAction : Qt::MoveAction);
    if (viewport.isNull()) {
        return;
    }
    m_ownDrag = false;
    leave();
    // The script may have changed while the drag went on: only what was dragged goes.
    const bool isStillThere = m_core.selectionStart() == start && m_core.selectionEnd() == end &&
                              m_core.box().SelText() == dragged;
    if (result == Qt::MoveAction && !m_droppedHere && isStillThere) {
        m_core.remove(start, end);
    }
}

void DragHandler::over(QDragMoveEvent& event) {
    if (m_core.isReadOnly() || !hasText(*event.mimeData())) {
        leave();
        event.ignore();
        return;
    }
    const int y = event.position().toPoint().y();
    const int height = m_core.viewport().height();
    const int margin = std::min(ScrollMargin, height / 4);
    if (y < margin) {
        m_core.scrollBy(y - margin);
    } else if (y >= height - margin) {
        m_core.scrollBy(y - height + margin + 1);
    }
    setDropPosition(m_core.geometry().positionAt(event.position()));
    event.acceptProposedAction();
}

void DragHandler::leave() {
    setDropPosition(std::nullopt);
}

void DragHandler::setDropPosition(std::optional<int> position) {
    for (const std::optional<int>& place : {m_dropPosition, position}) {
        if (place && m_dropPosition != position) {
            m_core.viewport().update(m_core.geometry().caretRect(*place));
        }
    }
    // The view's own caret is not painted meanwhile.
    if (m_dropPosition.has_value() != position.has_value()) {
        m_core.viewport().update(m_core.caretRect());
    }
    m_dropPosition = position;
}

void DragHandler::drop(QDropEvent& event) {
    leave();
    if (m_core.isReadOnly() || !hasText(*event.mimeData())) {
        event.ignore();
        return;
    }
    const int position = m_core.geometry().positionAt(event.position());
    event.acceptProposedAction();
    if (!m_ownDrag) {
        m_core.moveCaret(position, SelectionMode::Move);
        m_core.insertIncoming(*event.mimeData());
        return;
    }
    m_droppedHere = true;
    if (event.dropAction() == Qt::CopyAction) {
        copySelectionTo(position);
    } else {
        moveSelectionTo(position);
    }
}

void DragHandler::copySelectionTo(int position) {
    RichTextBox& box = m_core.box();
    const RichTextFragment fragment = box.selectedFragment();
    m_core.moveCaret(position, SelectionMode::Move);
    box.replaceSelection(fragment);
    m_core.select(position, m_core.caret());
}

void DragHandler::moveSelectionTo(int position) {
    const int start = m_core.selectionStart();
    const int end = m_core.selectionEnd();
    if (position >= start && position <= end) {
        return;
    }
    RichTextBox& box = m_core.box();
    const RichTextFragment fragment = box.selectedFragment();
    box.setSelText(QString());
    const int target = position > end ? position - (end - start) : position;
    m_core.moveCaret(target, SelectionMode::Move);
    box.replaceSelection(fragment);
    m_core.select(target, m_core.caret());
}

} // namespace velmora
