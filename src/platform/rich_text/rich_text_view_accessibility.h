#pragma once

#include "platform/rich_text/rich_text_view_change.h"

#include <QString>

#include <optional>

namespace velmora {

class RichTextView;

/// Teaches assistive programs to read and edit every RichTextView. May be called again.
void installRichTextViewAccessibility();

/// Tells assistive programs what changes in a view. Owned by the view; costs next to nothing while
/// no such program runs. Offsets are positions of the QTextDocument.
class AccessibilityNotifier final {
public:
    explicit AccessibilityNotifier(RichTextView& view) : m_view(view) {}

    /// Notes a change of the document as it happens.
    void noteChange(const TextChange& change);
    /// Tells what was noted: the box's operation is complete.
    void tellTextChange();
    void tellCaretChange();

private:
    RichTextView& m_view;
    /// The text before the change, for the part of it that goes. Kept only while somebody listens.
    std::optional<QString> m_text;
    std::optional<TextChange> m_change;
};

} // namespace velmora
