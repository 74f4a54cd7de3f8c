#include "platform/rich_text/rich_text_view_mouse.h"

#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_view_clipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextCursor>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr int AutoScrollMs = 30;

/// Pixels to scroll in one turn: the farther outside the mouse is, the faster; 0 inside.
int autoScrollStep(double y, int height) {
    if (y < 0) {
        return static_cast<int>(std::floor(y / 2)) - 1;
    }
    return y >= height ? static_cast<int>(std::ceil((y - height) / 2)) + 1 : 0;
}

} // namespace

void MouseHandler::press(const QMouseEvent& event) {
    const QPointF point = event.position();
    if (event.button() == Qt::MiddleButton) {
        pasteSelectionAt(point);
        return;
    }
    if (event.button() != Qt::LeftButton) {
        return;
    }
    const ViewCore::ScrollHold hold(m_core);
    m_pressPoint = point.toPoint();
    m_lastPoint = point;
    const int position = m_core.geometry().positionAt(point);
    if (isThirdClick(event)) {
        m_sinceDoubleClick.invalidate();
        beginSelection(Unit::Paragraph, position);
    } else if (event.modifiers().testFlag(Qt::ShiftModifier)) {
        m_unit = Unit::Character;
        m_first = {m_core.anchor(), m_core.anchor()};
        m_state = State::Selecting;
        m_core.moveCaret(position, SelectionMode::Extend);
    } else if (isOnSelection(point)) {
        m_state = State::OnSelection;
    } else {
        beginSelection(Unit::Character, position);
    }
}

void MouseHandler::doubleClick(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        return;
    }
    const ViewCore::ScrollHold hold(m_core);
    m_pressPoint = event.position().toPoint();
    m_lastPoint = event.position();
    m_sinceDoubleClick.start();
    beginSelection(Unit::Word, m_core.geometry().positionAt(event.position()));
}

void MouseHandler::move(const QMouseEvent& event) {
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const QPointF point = event.position();
    const int moved = (point.toPoint() - m_pressPoint).manhattanLength();
    if (m_state == State::OnSelection) {
        if (moved >= QApplication::startDragDistance()) {
            m_state = State::Idle;
            Q_EMIT dragStarted();
        }
        return;
    }
    if (m_state != State::Selecting) {
        return;
    }
    extendTo(point);
    const bool outside = autoScrollStep(point.y(), m_core.viewport().height()) != 0;
    if (outside && !m_autoScroll.isActive()) {
        m_autoScroll.start(AutoScrollMs, this);
    } else if (!outside) {
        m_autoScroll.stop();
    }
}

void MouseHandler::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        return;
    }
    m_autoScroll.stop();
    if (m_state == State::OnSelection) {
        // A click on the selection that became no drag sets the caret after all.
        const ViewCore::ScrollHold hold(m_core);
        m_core.moveCaret(m_core.geometry().positionAt(event.position()), SelectionMode::Move);
    } else if (m_state == State::Selecting) {
        publishSelection();
    }
    m_state = State::Idle;
}

void MouseHandler::beginSelection(Unit unit, int position) {
    m_state = State::Selecting;
    m_unit = unit;
    m_first = unitAt(unit, position);
    m_core.select(m_first.start, m_first.end);
}

void MouseHandler::extendTo(QPointF point) {
    const ViewCore::ScrollHold hold(m_core);
    m_lastPoint = point;
    const Range here = unitAt(m_unit, m_core.geometry().positionAt(point));
    if (here.start < m_first.start) {
        m_core.select(m_first.end, here.start);
    } else {
        m_core.select(m_first.start, std::max(here.end, m_first.end));
    }
}

MouseHandler::Range MouseHandler::unitAt(Unit unit, int position) const {
    if (unit == Unit::Character) {
        return {position, position};
    }
    QTextCursor cursor(&m_core.box().document());
    cursor.setPosition(position);
    if (unit == Unit::Word) {
        cursor.select(QTextCursor::WordUnderCursor);
        return {cursor.selectionStart(), cursor.selectionEnd()};
    }
    // A paragraph with its end, so that it can be taken away as a whole; the last one has none.
    const QTextBlock block = cursor.block();
    const int last = m_core.box().document().characterCount() - 1;
    return {block.position(), std::min(block.position() + block.length(), last)};
}

bool MouseHandler::isThirdClick(const QMouseEvent& event) const {
    const int moved = (event.position().toPoint() - m_pressPoint).manhattanLength();
    return m_sinceDoubleClick.isValid() &&
           m_sinceDoubleClick.elapsed() < QApplication::doubleClickInterval() &&
           moved < QApplication::startDragDistance();
}

bool MouseHandler::isOnSelection(QPointF point) const {
    if (!m_core.hasSelection()) {
        return false;
    }
    const ViewGeometry& geometry = m_core.geometry();
    const LinePlace line = geometry.lineAt(point.y());
    if (!geometry.lineRect(line).contains(point.toPoint())) {
        return false;
    }
    const double x = (point.x() - geometry.columnLeft()) / geometry.scale();
    const QRectF text = line.line.naturalTextRect();
    if (x < text.left() || x > text.right()) {
        return false;
    }
    // The character under the point, not the gap nearest to it.
    const int under =
        geometry.fromLayout(line.block, line.line.xToCursor(x, QTextLine::CursorOnCharacter));
    return m_core.selectionStart() <= under && under < m_core.selectionEnd();
}

void MouseHandler::publishSelection() const {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    if (!clipboard.supportsSelection()) {
        return;
    }
    if (auto data = m_core.selectionData()) {
        clipboard.setMimeData(data.release(), QClipboard::Selection);
    }
}

void MouseHandler::pasteSelectionAt(QPointF point) {
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    if (!clipboard.supportsSelection() || m_core.isReadOnly()) {
        return;
    }
    const QMimeData* data = clipboard.mimeData(QClipboard::Selection);
    if (data != nullptr && hasText(*data)) {
        m_core.moveCaret(m_core.geometry().positionAt(point), SelectionMode::Move);
        m_core.insertIncoming(*data);
    }
}

void MouseHandler::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_autoScroll.timerId()) {
        m_core.scrollBy(autoScrollStep(m_lastPoint.y(), m_core.viewport().height()));
        extendTo(m_lastPoint);
    }
}

} // namespace velmora
