#pragma once

#include <QAbstractScrollArea>

#include <functional>
#include <memory>

class QMimeData;

namespace velmora {

class RichTextBox;
struct RichTextFragment;

/// The visible editor over a RichTextBox: caret, selection, mouse, keys, input method, clipboard,
/// scroll bar. Owned by its window; the box is the session's and outlives it.
/// Scales with QPainter::scale only; a zoom never lays out again.
///
/// The view follows the caret when the text or the selection changes, by whomever, except for a
/// selection of the whole text and while the box's redraw is off. Keys that it does not know go on
/// to the window; an owner that wants to see them first installs an event filter.
class RichTextView final : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit RichTextView(RichTextBox& box, QWidget* parent = nullptr);
    ~RichTextView() override;

    [[nodiscard]] RichTextBox& box() const;

    /// EM_GETFIRSTVISIBLELINE: the first line that is wholly or partly visible.
    [[nodiscard]] int firstVisibleLine() const;
    /// Scrolls so that the line is the first visible one, as far as the text's end allows.
    void scrollLineToTop(int line);
    /// Scrolls as little as needed to see the caret.
    void ensureCaretVisible();

    /// The selection to the clipboard, as RTF and as plain text; nothing if it is empty.
    void copy() const;
    /// copy(), and deletes the selection. Nothing in a read-only view.
    void cut();
    /// The clipboard in the place of the selection. Nothing in a read-only view.
    void paste();

    /// A read-only view shows, scrolls, selects and copies. Off at first.
    [[nodiscard]] bool isReadOnly() const;
    void setReadOnly(bool on);

    /// Gives the owner what is to enter from outside (paste, drop, middle button) in place of its
    /// insertion: the owner puts it into the box as it sees fit, in the place of the selection.
    /// What is dragged inside the view does not count. An empty function restores the insertion.
    using IncomingHandler = std::function<void(const QMimeData&)>;
    void setIncomingHandler(IncomingHandler handler);
    /// Changes the text that other programs get by copy, cut, drag and the middle button.
    using OutgoingLook = std::function<void(RichTextFragment&)>;
    void setOutgoingLook(OutgoingLook look);

    /// Viewport rectangle of the caret at a position of the QTextDocument; a position outside of
    /// the text counts as its nearest end.
    [[nodiscard]] QRect caretRectAt(int documentPosition) const;
    /// Position of the QTextDocument that is nearest to a point of the viewport.
    [[nodiscard]] int documentPositionAt(QPointF point) const;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    /// The same with an argument, as input methods ask it.
    Q_INVOKABLE QVariant inputMethodQuery(Qt::InputMethodQuery query,
                                          const QVariant& argument) const;

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace velmora
