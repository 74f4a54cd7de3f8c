#pragma once

#include "platform/rich_text/rich_text_view_clipboard.h"
#include "platform/rich_text/rich_text_view_geometry.h"

#include <QString>

#include <functional>

class QAbstractScrollArea;
class QMimeData;
class QWidget;

namespace velmora {

class RichTextBox;

/// Whether a caret that moves leaves the other end of the selection behind.
enum class SelectionMode { Move, Extend };

/// What the parts of the editor view share: the box, its place on the screen, and the acts that
/// every part needs. Owned by the view. Positions are those of the QTextDocument; the box's own
/// positions, where a line end counts two, stay behind this class.
class ViewCore final {
public:
    /// Puts what came from outside into the box, in the place of its selection.
    using IncomingHandler = std::function<void(const QMimeData&)>;

    ViewCore(RichTextBox& box, QAbstractScrollArea& area);

    [[nodiscard]] RichTextBox& box() const { return m_box; }
    [[nodiscard]] QWidget& viewport() const;
    [[nodiscard]] ViewGeometry& geometry() { return m_geometry; }
    [[nodiscard]] const ViewGeometry& geometry() const { return m_geometry; }

    // --- selection
    [[nodiscard]] int caret() const;
    [[nodiscard]] int anchor() const;
    [[nodiscard]] int selectionStart() const { return qMin(caret(), anchor()); }
    [[nodiscard]] int selectionEnd() const { return qMax(caret(), anchor()); }
    [[nodiscard]] bool hasSelection() const;
    void select(int anchor, int caret);
    void moveCaret(int position, SelectionMode mode);

    // --- changes; none of them does anything while the view is read-only
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }
    void setReadOnly(bool on) { m_readOnly = on; }
    /// Replaces the selection by typed text.
    void insertText(const QString& text);
    void remove(int from, int to);
    /// Replaces the selection by what came from the clipboard or by drag and drop.
    void insertIncoming(const QMimeData& data);
    void setIncomingHandler(IncomingHandler handler) { m_incoming = std::move(handler); }
    /// The selection for the clipboard or a drag; nullptr where nothing is selected.
    [[nodiscard]] std::unique_ptr<QMimeData> selectionData() const;
    void setOutgoingLook(OutgoingLook look) { m_outgoing = std::move(look); }

    // --- scrolling
    void scrollTo(int documentPixel);
    void scrollBy(int pixels) { scrollTo(m_geometry.scrollOffset() + pixels); }
    /// Scrolls as little as needed to see the caret, and with it the selection if there is room.
    void ensureCaretVisible();
    /// Place of the caret inside the text that an input method composes, from that text's start.
    void setPreeditCaret(int offset) { m_preeditCaret = offset; }
    [[nodiscard]] QRect caretRect() const;

    /// While one lives, a moved selection does not scroll the view: the text must not slip away
    /// under a pressed mouse button.
    class ScrollHold final {
    public:
        explicit ScrollHold(ViewCore& core) : m_core(core) { ++m_core.m_scrollHolds; }
        ~ScrollHold() { --m_core.m_scrollHolds; }
        Q_DISABLE_COPY_MOVE(ScrollHold)

    private:
        ViewCore& m_core;
    };
    [[nodiscard]] bool isScrollHeld() const { return m_scrollHolds > 0; }

private:
    RichTextBox& m_box;
    QAbstractScrollArea& m_area;
    ViewGeometry m_geometry;
    IncomingHandler m_incoming;
    OutgoingLook m_outgoing;
    int m_preeditCaret = 0;
    int m_scrollHolds = 0;
    bool m_readOnly = false;
};

} // namespace velmora
