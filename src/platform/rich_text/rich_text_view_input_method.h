#pragma once

#include "platform/rich_text/rich_text_view_core.h"

#include <QObject>
#include <QTextCursor>
#include <QVariant>

class QInputMethodEvent;

namespace velmora {

/// The input method of the editor view: composed text is shown at the caret, in place and
/// underlined, and enters the box only when it is committed. Owned by the view.
class InputMethodHandler final : public QObject {
    Q_OBJECT
public:
    explicit InputMethodHandler(ViewCore& core) : m_core(core) {}

    void handle(const QInputMethodEvent& event);
    [[nodiscard]] QVariant query(Qt::InputMethodQuery query, const QVariant& argument) const;
    /// Makes the input method commit what is being composed: before the caret moves elsewhere.
    void finish();
    /// Drops what is being composed: the text around it has changed or the caret has moved.
    void cancel();

    [[nodiscard]] bool isComposing() const { return !m_composedAt.isNull(); }
    /// The input method may hide the caret while it composes.
    [[nodiscard]] bool isCaretShown() const { return m_caretShown; }

Q_SIGNALS:
    /// A paragraph shows other composed text; the box's own text is the same.
    void composedChanged(int blockPosition, int blockLength);

private:
    void clearComposed();
    void showComposed(const QInputMethodEvent& event);
    void commit(const QInputMethodEvent& event);
    void selectAsAsked(const QInputMethodEvent& event);
    void setComposed(const QTextBlock& block, int position, const QString& text,
                     const QList<QTextLayout::FormatRange>& formats);
    [[nodiscard]] QVariant textQuery(Qt::InputMethodQuery query, int limit) const;

    ViewCore& m_core;
    /// Stands in the paragraph that shows composed text, whatever is edited; null without any.
    QTextCursor m_composedAt;
    bool m_caretShown = true;
};

} // namespace velmora
