#pragma once

#include <QAbstractScrollArea>

#include <memory>

namespace velmora {

class RichTextBox;

/// The visible editor over a RichTextBox: caret, selection, mouse, keys, input method, clipboard,
/// scroll bar. Owned by its window; the box is the session's and outlives it.
/// Scales with QPainter::scale only; a zoom never lays out again.
class RichTextView final : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit RichTextView(RichTextBox& box, QWidget* parent = nullptr);
    ~RichTextView() override;

    /// EM_GETFIRSTVISIBLELINE: the first line that is wholly or partly visible.
    [[nodiscard]] int firstVisibleLine() const;
    /// Scrolls so that the line is the first visible one, as far as the text's end allows.
    void scrollLineToTop(int line);
    /// Scrolls as little as needed to see the caret.
    void ensureCaretVisible();

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace velmora
