#pragma once

#include "platform/rich_text/rich_text_view_change.h"

#include <QString>

#include <optional>

class QAccessibleEvent;

namespace velmora {

class RichTextView;

/// Teaches assistive programs to read and edit every RichTextView. May be called again.
void installRichTextViewAccessibility();

/// Tells assistive programs what changes in a view. Owned by the view; costs next to nothing while
/// no such program runs. Offsets are positions of the QTextDocument.
class AccessibilityNotifier final {
public:
    /// The way to the assistive programs: whether one runs, and how it is told.
    struct Listeners final {
        bool (*areThere)();
        void (*tell)(QAccessibleEvent*);
    };

    /// Without listeners it is those of QAccessible.
    explicit AccessibilityNotifier(RichTextView& view);
    AccessibilityNotifier(RichTextView& view, Listeners listeners)
        : m_view(view), m_listeners(listeners) {}

    /// Notes a change of the document as it happens.
    void noteChange(const TextChange& change);
    /// Tells what was noted: the box's operation is complete.
    void tellTextChange();
    void tellCaretChange();

private:
    RichTextView& m_view;
    Listeners m_listeners;
    /// The text before the change, for the part of it that goes. Kept only while somebody listens.
    std::optional<QString> m_text;
    std::optional<TextChange> m_change;
};

} // namespace velmora
