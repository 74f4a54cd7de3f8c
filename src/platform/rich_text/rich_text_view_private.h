#pragma once

#include "platform/rich_text/rich_text_view.h"
#include "platform/rich_text/rich_text_view_accessibility.h"
#include "platform/rich_text/rich_text_view_caret.h"
#include "platform/rich_text/rich_text_view_core.h"
#include "platform/rich_text/rich_text_view_damage.h"
#include "platform/rich_text/rich_text_view_drag.h"
#include "platform/rich_text/rich_text_view_input_method.h"
#include "platform/rich_text/rich_text_view_keys.h"
#include "platform/rich_text/rich_text_view_mouse.h"

namespace velmora {

/// The parts of the editor view, and what keeps the picture in step with the box.
class RichTextView::Private final {
public:
    Private(RichTextView& view, RichTextBox& box);

    // --- what the box tells
    void followDocument();
    void leaveDocument();
    void textChanged();
    void selectionChanged();
    void appearanceChanged();
    void composedChanged(int blockPosition, int blockLength);

    // --- what the window system tells
    void viewportResized();
    void viewportScrolled(int rows);
    void paint(const QRegion& region);
    /// Shows the caret where it is now, and tells the input method.
    void updateCaret();
    /// The same without a word to the input method: the caret blinked.
    void repaintCaret();
    /// Shows the caret at once and lets it blink anew; hides it without the focus.
    void restartCaret();

    /// Fits the scroll bar to the text and to the viewport.
    void fitScrollBar();
    /// Scrolls to the caret where the view follows it.
    void followCaret();

    RichTextView& q;
    ViewCore core;
    DamageTracker damage;
    CaretBlink caret;
    KeyHandler keys;
    MouseHandler mouse;
    DragHandler drag;
    InputMethodHandler inputMethod;
    AccessibilityNotifier accessibility;

private:
    /// What stands at the upper edge: a position, and how much of its line is above the edge.
    struct TopAnchor final {
        int position = 0;
        double hiddenPart = 0;
    };

    void repaint(const QRegion& region);
    void rememberPicture();
    void scrollToAnchor(const TopAnchor& anchor);
    [[nodiscard]] QColor caretColor(int position) const;
    [[nodiscard]] QRegion selectionRegion(int start, int end) const;

    QMetaObject::Connection m_documentChanges;
    TopAnchor m_top;
    QRect m_shownCaret;
    int m_shownStart = 0;
    int m_shownEnd = 0;
    /// Of the box, while it was last painted.
    bool m_redraw = true;
    int m_caretAtFreeze = 0;
};

} // namespace velmora
