#include "platform/rich_text/rich_text_view_input_method.h"

#include "platform/rich_text/rich_text_box.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QTextCursor>
#include <QTextDocument>
#include <QWidget>

#include <algorithm>

namespace velmora {

namespace {

using Attribute = QInputMethodEvent::Attribute;

/// Characters around the caret that an input method gets where it names no limit.
constexpr int DefaultContext = 1024;

bool isMarked(const QTextCharFormat& format) {
    return format.underlineStyle() != QTextCharFormat::NoUnderline ||
           format.hasProperty(QTextFormat::BackgroundBrush);
}

/// The looks of composed text: those that the input method asks for, else an underline. The text
/// engine takes the font and the colour from the text beside it; an empty paragraph's are given.
QList<QTextLayout::FormatRange> composedFormats(const QInputMethodEvent& event,
                                                const QTextCursor& cursor) {
    const int position = cursor.positionInBlock();
    QList<QTextLayout::FormatRange> formats;
    bool underlined = true;
    for (const Attribute& attribute : event.attributes()) {
        const auto format = qvariant_cast<QTextFormat>(attribute.value).toCharFormat();
        if (attribute.type == QInputMethodEvent::TextFormat && format.isValid()) {
            formats.append({position + attribute.start, attribute.length, format});
            underlined = underlined && !isMarked(format);
        }
    }
    QTextCharFormat base =
        cursor.block().length() == 1 ? cursor.blockCharFormat() : QTextCharFormat();
    if (underlined) {
        base.setFontUnderline(true);
    }
    formats.prepend({position, static_cast<int>(event.preeditString().size()), base});
    return formats;
}

} // namespace

void InputMethodHandler::handle(const QInputMethodEvent& event) {
    if (m_core.isReadOnly()) {
        return;
    }
    clearComposed();
    commit(event);
    showComposed(event);
}

void InputMethodHandler::clearComposed() {
    if (isComposing()) {
        // An edit may have split the paragraph in front of the cursor.
        const QTextBlock block = m_composedAt.block();
        m_composedAt = QTextCursor();
        setComposed(block, -1, QString(), {});
        if (block.previous().isValid() && !block.previous().layout()->preeditAreaText().isEmpty()) {
            setComposed(block.previous(), -1, QString(), {});
        }
    }
    m_core.setPreeditCaret(0);
    m_caretShown = true;
}

void InputMethodHandler::commit(const QInputMethodEvent& event) {
    const bool replaces = event.replacementLength() > 0;
    if (replaces || event.replacementStart() != 0) {
        const int last = m_core.box().document().characterCount() - 1;
        const int from = std::clamp(m_core.selectionStart() + event.replacementStart(), 0, last);
        m_core.select(from, std::clamp(from + event.replacementLength(), 0, last));
    }
    const bool startsComposing = !event.preeditString().isEmpty() && m_core.hasSelection();
    if (replaces || startsComposing || !event.commitString().isEmpty()) {
        m_core.insertText(event.commitString());
    }
    selectAsAsked(event);
}

void InputMethodHandler::selectAsAsked(const QInputMethodEvent& event) {
    const QTextDocument& document = m_core.box().document();
    const int last = document.characterCount() - 1;
    for (const Attribute& attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Selection) {
            const int start = document.findBlock(m_core.caret()).position() + attribute.start;
            m_core.select(std::clamp(start, 0, last),
                          std::clamp(start + attribute.length, 0, last));
        }
    }
}

void InputMethodHandler::showComposed(const QInputMethodEvent& event) {
    if (event.preeditString().isEmpty()) {
        return;
    }
    QTextCursor cursor(&m_core.box().document());
    cursor.setPosition(m_core.caret());
    const int length = static_cast<int>(event.preeditString().size());
    m_core.setPreeditCaret(length);
    for (const Attribute& attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            m_core.setPreeditCaret(std::clamp(attribute.start, 0, length));
            m_caretShown = attribute.length != 0;
        }
    }
    const int position = cursor.positionInBlock();
    m_composedAt = cursor;
    setComposed(cursor.block(), position, event.preeditString(), composedFormats(event, cursor));
}

void InputMethodHandler::setComposed(const QTextBlock& block, int position, const QString& text,
                                     const QList<QTextLayout::FormatRange>& formats) {
    block.layout()->setPreeditArea(position, text);
    block.layout()->setFormats(formats);
    m_core.box().document().markContentsDirty(block.position(), block.length());
    Q_EMIT composedChanged(block.position(), block.length());
}

void InputMethodHandler::cancel() {
    if (isComposing()) {
        clearComposed();
        QGuiApplication::inputMethod()->reset();
    }
}

void InputMethodHandler::finish() {
    if (isComposing()) {
        QGuiApplication::inputMethod()->commit();
    }
    if (isComposing()) {
        // No input method answered: what it left behind must not stay in the text for ever.
        clearComposed();
    }
}

QVariant InputMethodHandler::query(Qt::InputMethodQuery query, const QVariant& argument) const {
    switch (query) {
    case Qt::ImEnabled:
        return !m_core.isReadOnly();
    case Qt::ImReadOnly:
        return m_core.isReadOnly();
    case Qt::ImHints:
        return static_cast<int>(Qt::ImhMultiLine);
    case Qt::ImCursorRectangle:
        return m_core.caretRect().translated(m_core.viewport().pos());
    case Qt::ImAnchorRectangle:
        return m_core.geometry().caretRect(m_core.anchor()).translated(m_core.viewport().pos());
    case Qt::ImFont: {
        QFont font(m_core.box().SelFontName().value_or(m_core.box().defaultFormat().fontName));
        const LinePlace line = m_core.geometry().lineOfPosition(m_core.caret());
        font.setPixelSize(std::max(1, qRound(line.height * m_core.geometry().scale() * 0.8)));
        return font;
    }
    default:
        return textQuery(query, argument.isValid() && argument.canConvert<int>() ? argument.toInt()
                                                                                 : DefaultContext);
    }
}

QVariant InputMethodHandler::textQuery(Qt::InputMethodQuery query, int limit) const {
    const QTextBlock block = m_core.box().document().findBlock(m_core.caret());
    const int end = static_cast<int>(block.text().size());
    const int caret = m_core.caret() - block.position();
    const int anchor = std::clamp(m_core.anchor() - block.position(), 0, end);
    switch (query) {
    case Qt::ImSurroundingText:
        return block.text();
    case Qt::ImCursorPosition:
        return caret;
    case Qt::ImAnchorPosition:
        return anchor;
    case Qt::ImAbsolutePosition:
        return m_core.caret();
    case Qt::ImCurrentSelection:
        return block.text().mid(std::min(caret, anchor), std::abs(caret - anchor));
    case Qt::ImTextBeforeCursor:
        return block.text().left(caret).right(limit);
    case Qt::ImTextAfterCursor:
        return block.text().mid(caret, limit);
    default:
        return {};
    }
}

} // namespace velmora
