#include "platform/rich_text/rich_text_view_accessibility.h"

#include "platform/drawing/color.h"
#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_view.h"
#include "platform/rich_text/rich_text_view_painting.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

/// Raw text of a document as assistive programs expect it: every line end is LF.
QString withLineFeeds(QString text) {
    text.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    return text;
}

/// What stands between two positions, each limited to the text.
QString textBetween(QTextDocument& document, int start, int end) {
    const int last = document.characterCount() - 1;
    QTextCursor cursor(&document);
    cursor.setPosition(std::clamp(start, 0, last));
    cursor.setPosition(std::clamp(end, 0, last), QTextCursor::KeepAnchor);
    return withLineFeeds(cursor.selectedText());
}

/// Character attributes by the names of IAccessible2's text attributes.
QString attributeText(const CharacterFormat& format, const QColor& background) {
    const auto rgb = [](const QColor& color) {
        return QStringLiteral("rgb(%1,%2,%3)")
            .arg(QString::number(color.red()), QString::number(color.green()),
                 QString::number(color.blue()));
    };
    const QColor behind = format.backColor == 0 ? background : toColor(format.backColor);
    QString text = QStringLiteral("font-family:\"%1\";font-size:%2pt;color:%3;background-color:%4;")
                       .arg(format.fontName, QString::number(format.halfPoints / 2.0),
                            rgb(toColor(format.color)), rgb(behind));
    const std::pair<bool, QString> effects[] = {
        {format.bold, QStringLiteral("font-weight:bold;")},
        {format.italic, QStringLiteral("font-style:italic;")},
        {format.underline, QStringLiteral("text-underline-type:single;")},
        {format.strikeThrough, QStringLiteral("text-line-through-type:single;")},
    };
    for (const auto& [isOn, name] : effects) {
        text += isOn ? name : QString();
    }
    return text;
}

/// A RichTextView as assistive programs see it. Offsets are positions of the QTextDocument.
class ViewInterface final : public QAccessibleWidget,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface {
public:
    explicit ViewInterface(RichTextView* view)
        : QAccessibleWidget(view, QAccessible::EditableText), m_view(*view) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface*>(this);
        case QAccessible::EditableTextInterface:
            return m_view.isReadOnly() ? nullptr
                                       : static_cast<QAccessibleEditableTextInterface*>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiLine = true;
        state.selectableText = true;
        state.editable = !m_view.isReadOnly();
        state.readOnly = m_view.isReadOnly();
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? text(0, characterCount())
                                          : QAccessibleWidget::text(kind);
    }

    // --- selection and caret
    void selection(int index, int* start, int* end) const override {
        const bool exists = index == 0 && box().SelLength() > 0;
        *start = exists ? box().toDocument(box().SelStart()) : 0;
        *end = exists ? box().toDocument(box().SelStart() + box().SelLength()) : 0;
    }
    int selectionCount() const override { return box().SelLength() > 0 ? 1 : 0; }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override {
        if (index == 0) {
            setCursorPosition(cursorPosition());
        }
    }
    void setSelection(int index, int start, int end) override {
        if (index == 0) {
            box().select(box().fromDocument(start), box().fromDocument(end));
        }
    }
    int cursorPosition() const override { return box().toDocument(box().caretPosition()); }
    void setCursorPosition(int position) override { setSelection(0, position, position); }

    // --- text
    int characterCount() const override { return document().characterCount() - 1; }
    QString text(int start, int end) const override { return textBetween(document(), start, end); }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                             int* end) const override {
        const Span here = spanAt(offset, type);
        return here.start > 0 ? give(spanAt(here.start - 1, type), start, end)
                              : give({0, 0}, start, end);
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                         int* end) const override {
        return give(spanAt(offset, type), start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                            int* end) const override {
        const Span here = spanAt(offset, type);
        const int count = characterCount();
        return here.end < count ? give(spanAt(here.end, type), start, end)
                                : give({count, count}, start, end);
    }
    QString attributes(int offset, int* start, int* end) const override {
        const QTextBlock block = blockOf(offset);
        const QString direction =
            isRightToLeft(block) ? QStringLiteral("writing-mode:rl;") : QString();
        *start = block.position();
        *end = std::min(block.position() + block.length(), characterCount());
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            if (run.fragment().contains(offset)) {
                *start = run.fragment().position();
                *end = *start + run.fragment().length();
                return attributeText(fromTextFormat(run.fragment().charFormat()), background()) +
                       direction;
            }
        }
        return attributeText(fromTextFormat(block.charFormat()), background()) + direction;
    }

    // --- places on the screen
    QRect characterRect(int offset) const override {
        const int first = std::clamp(offset, 0, characterCount());
        const QRect here = m_view.caretRectAt(first);
        const QRect next = m_view.caretRectAt(std::min(first + 1, characterCount()));
        const int width = next.top() == here.top() ? std::abs(next.left() - here.left()) : 0;
        const QRect rect(std::min(here.left(), width > 0 ? next.left() : here.left()), here.top(),
                         std::max(width, here.width()), here.height());
        return {m_view.viewport()->mapToGlobal(rect.topLeft()), rect.size()};
    }
    int offsetAtPoint(const QPoint& point) const override {
        const QPoint inViewport = m_view.viewport()->mapFromGlobal(point);
        return m_view.viewport()->rect().contains(inViewport)
                   ? m_view.documentPositionAt(QPointF(inViewport))
                   : -1;
    }
    void scrollToSubstring(int start, int end) override {
        Q_UNUSED(end)
        m_view.scrollLineToTop(box().layout().lineOfPosition(start).number);
    }

    // --- editing
    void deleteText(int start, int end) override { replaceText(start, end, QString()); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString& text) override {
        if (!m_view.isReadOnly()) {
            setSelection(0, start, end);
            box().setSelText(text);
        }
    }

private:
    struct Span final {
        int start = 0;
        int end = 0;
    };

    [[nodiscard]] RichTextBox& box() const { return m_view.box(); }
    [[nodiscard]] QTextDocument& document() const { return box().document(); }
    [[nodiscard]] QColor background() const { return toColor(box().BackColor()); }
    [[nodiscard]] QTextBlock blockOf(int offset) const {
        return document().findBlock(std::clamp(offset, 0, characterCount()));
    }
    [[nodiscard]] QString give(Span span, int* start, int* end) const {
        *start = span.start;
        *end = span.end;
        return text(span.start, span.end);
    }

    /// The word, sentence, line ... around an offset. Looks at its paragraph only: a script is
    /// long.
    [[nodiscard]] Span spanAt(int anyOffset, QAccessible::TextBoundaryType type) const {
        const int offset = std::clamp(anyOffset, 0, characterCount());
        const QTextBlock block = blockOf(offset);
        const int blockEnd = std::min(block.position() + block.length(), characterCount());
        switch (type) {
        case QAccessible::CharBoundary:
            return boundarySpan(block, offset, QTextBoundaryFinder::Grapheme);
        case QAccessible::WordBoundary:
            return boundarySpan(block, offset, QTextBoundaryFinder::Word);
        case QAccessible::SentenceBoundary:
            return boundarySpan(block, offset, QTextBoundaryFinder::Sentence);
        case QAccessible::LineBoundary: {
            const LinePlace line = box().layout().lineOfPosition(offset);
            const bool isLast = line.line.lineNumber() == block.lineCount() - 1;
            return {line.start(), isLast ? blockEnd : line.start() + line.line.textLength()};
        }
        case QAccessible::ParagraphBoundary:
            return {block.position(), blockEnd};
        case QAccessible::NoBoundary:
            break;
        }
        return {0, characterCount()};
    }

    [[nodiscard]] Span boundarySpan(const QTextBlock& block, int offset,
                                    QTextBoundaryFinder::BoundaryType type) const {
        const QString text = withLineFeeds(block.text()) + QLatin1Char('\n');
        QTextBoundaryFinder finder(type, text);
        const int inBlock = std::clamp(offset - block.position(), 0, static_cast<int>(text.size()));
        finder.setPosition(inBlock);
        const auto start = finder.isAtBoundary() ? inBlock : finder.toPreviousBoundary();
        finder.setPosition(inBlock);
        const auto next = finder.toNextBoundary();
        const auto end = next < 0 ? text.size() : next;
        return {block.position() + static_cast<int>(std::max<qsizetype>(start, 0)),
                std::min(block.position() + static_cast<int>(end), characterCount())};
    }

    RichTextView& m_view;
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object) {
    Q_UNUSED(className)
    auto* view = qobject_cast<RichTextView*>(object);
    return view == nullptr ? nullptr : new ViewInterface(view);
}

} // namespace

void installRichTextViewAccessibility() {
    QAccessible::installFactory(makeInterface);
}

AccessibilityNotifier::AccessibilityNotifier(RichTextView& view)
    : AccessibilityNotifier(view, {QAccessible::isActive, QAccessible::updateAccessibility}) {}

void AccessibilityNotifier::noteChange(const TextChange& change) {
    m_change = m_change ? m_change->followedBy(change) : change;
}

void AccessibilityNotifier::tellTextChange() {
    const std::optional<TextChange> change = std::exchange(m_change, std::nullopt);
    if (!m_listeners.areThere()) {
        m_text.reset();
        return;
    }
    QTextDocument& document = m_view.box().document();
    if (change && m_text) {
        const QString added = textBetween(document, change->from, change->newEnd);
        const qsizetype length = change->oldEnd - change->from;
        const QString removed = m_text->mid(change->from, length);
        m_text->replace(change->from, length, added);
        if (removed != added) {
            QAccessibleTextUpdateEvent event(&m_view, change->from, removed, added);
            m_listeners.tell(&event);
        }
    }
    // A change of the whole text may be told with the document's own last line end.
    if (!m_text || m_text->size() != document.characterCount() - 1) {
        m_text = withLineFeeds(document.toRawText());
    }
}

void AccessibilityNotifier::tellCaretChange() {
    if (!m_listeners.areThere()) {
        return;
    }
    if (!m_text) {
        tellTextChange();
    }
    const RichTextBox& box = m_view.box();
    const int caret = box.toDocument(box.caretPosition());
    if (box.SelLength() > 0) {
        const int start = box.toDocument(box.SelStart());
        const int end = box.toDocument(box.SelStart() + box.SelLength());
        QAccessibleTextSelectionEvent event(&m_view, start, end);
        event.setCursorPosition(caret);
        m_listeners.tell(&event);
    } else {
        QAccessibleTextCursorEvent event(&m_view, caret);
        m_listeners.tell(&event);
    }
}

} // namespace velmora
