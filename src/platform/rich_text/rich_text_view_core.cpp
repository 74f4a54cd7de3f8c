#include "platform/rich_text/rich_text_view_core.h"

#include "platform/rich_text/rich_text_box.h"

#include <QAbstractScrollArea>
#include <QMimeData>
#include <QScrollBar>

#include <algorithm>

namespace velmora {

ViewCore::ViewCore(RichTextBox& box, QAbstractScrollArea& area)
    : m_box(box), m_area(area), m_geometry(box) {}

QWidget& ViewCore::viewport() const {
    return *m_area.viewport();
}

int ViewCore::caret() const {
    return m_box.toDocument(m_box.caretPosition());
}

int ViewCore::anchor() const {
    const int start = m_box.SelStart();
    const bool caretInFront = m_box.caretPosition() == start;
    return m_box.toDocument(caretInFront ? start + m_box.SelLength() : start);
}

bool ViewCore::hasSelection() const {
    return m_box.SelLength() > 0;
}

void ViewCore::select(int anchor, int caret) {
    m_box.select(m_box.fromDocument(anchor), m_box.fromDocument(caret));
}

void ViewCore::moveCaret(int position, SelectionMode mode) {
    select(mode == SelectionMode::Extend ? anchor() : position, position);
}

void ViewCore::insertText(const QString& text) {
    if (!m_readOnly) {
        m_box.setSelText(text);
    }
}

void ViewCore::remove(int from, int to) {
    if (m_readOnly || from == to) {
        return;
    }
    select(from, to);
    m_box.setSelText(QString());
}

void ViewCore::insertIncoming(const QMimeData& data) {
    if (m_readOnly) {
        return;
    }
    if (m_incoming) {
        m_incoming(data);
    } else {
        insertMimeData(m_box, data);
    }
}

std::unique_ptr<QMimeData> ViewCore::selectionData() const {
    return selectionMimeData(m_box, m_outgoing);
}

void ViewCore::scrollTo(int documentPixel) {
    m_area.verticalScrollBar()->setValue(documentPixel);
}

QRect ViewCore::caretRect() const {
    return m_geometry.caretRect(caret(), m_preeditCaret);
}

void ViewCore::ensureCaretVisible() {
    const int height = m_geometry.viewportSize().height();
    QRect wanted = caretRect();
    const QRect other = m_geometry.caretRect(anchor());
    const QRect both = wanted.united(other);
    if (both.height() <= height) {
        wanted = both;
    }
    // The blank row above the first line belongs to it: the top of the text is the offset 0.
    const int top = m_geometry.scrollOffset() + wanted.top() <= 1 ? wanted.top() - 1 : wanted.top();
    if (top < 0 || wanted.height() > height) {
        scrollBy(top);
    } else if (wanted.bottom() >= height) {
        scrollBy(wanted.bottom() + 1 - height);
    }
}

} // namespace velmora
