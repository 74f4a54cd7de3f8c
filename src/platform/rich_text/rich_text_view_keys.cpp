#include "platform/rich_text/rich_text_view_keys.h"

#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/rich_text_box.h"

#include <QKeyEvent>
#include <QTextCursor>

#include <algorithm>
#include <array>

namespace velmora {

enum class KeyHandler::Step {
    Left,
    Right,
    WordLeft,
    WordRight,
    LineStart,
    LineEnd,
    TextStart,
    TextEnd,
    ParagraphStart,
    ParagraphEnd,
    Up,
    Down,
    PageUp,
    PageDown,
};

/// The keys of a step, alone and with the selection extended.
struct KeyHandler::MoveBinding final {
    QKeySequence::StandardKey move;
    QKeySequence::StandardKey extend;
    Step step;
    /// Not used for the vertical steps, which keep the wanted place on the line.
    QTextCursor::MoveOperation operation = QTextCursor::NoMove;
};

struct KeyHandler::EditBinding final {
    QKeySequence::StandardKey key;
    void (*act)(KeyHandler&);
    /// Also where the text may not be changed.
    bool inReadOnly = false;
};

const KeyHandler::MoveBinding* KeyHandler::moveBinding(const QKeyEvent& event,
                                                       SelectionMode& mode) {
    using K = QKeySequence;
    using C = QTextCursor;
    static constexpr std::array bindings = {
        MoveBinding{K::MoveToPreviousChar, K::SelectPreviousChar, Step::Left, C::Left},
        MoveBinding{K::MoveToNextChar, K::SelectNextChar, Step::Right, C::Right},
        MoveBinding{K::MoveToPreviousWord, K::SelectPreviousWord, Step::WordLeft, C::WordLeft},
        MoveBinding{K::MoveToNextWord, K::SelectNextWord, Step::WordRight, C::WordRight},
        MoveBinding{K::MoveToStartOfLine, K::SelectStartOfLine, Step::LineStart, C::StartOfLine},
        MoveBinding{K::MoveToEndOfLine, K::SelectEndOfLine, Step::LineEnd, C::EndOfLine},
        MoveBinding{K::MoveToStartOfDocument, K::SelectStartOfDocument, Step::TextStart, C::Start},
        MoveBinding{K::MoveToEndOfDocument, K::SelectEndOfDocument, Step::TextEnd, C::End},
        MoveBinding{K::MoveToStartOfBlock, K::SelectStartOfBlock, Step::ParagraphStart,
                    C::StartOfBlock},
        MoveBinding{K::MoveToEndOfBlock, K::SelectEndOfBlock, Step::ParagraphEnd, C::EndOfBlock},
        MoveBinding{K::MoveToPreviousLine, K::SelectPreviousLine, Step::Up},
        MoveBinding{K::MoveToNextLine, K::SelectNextLine, Step::Down},
        MoveBinding{K::MoveToPreviousPage, K::SelectPreviousPage, Step::PageUp},
        MoveBinding{K::MoveToNextPage, K::SelectNextPage, Step::PageDown},
    };
    for (const MoveBinding& binding : bindings) {
        if (event.matches(binding.move)) {
            mode = SelectionMode::Move;
            return &binding;
        }
        if (event.matches(binding.extend)) {
            mode = SelectionMode::Extend;
            return &binding;
        }
    }
    return nullptr;
}

const KeyHandler::EditBinding* KeyHandler::editBinding(const QKeyEvent& event) {
    using K = QKeySequence;
    static constexpr std::array bindings = {
        EditBinding{K::Copy, [](KeyHandler& keys) { keys.m_clipboard.copy(); }, true},
        EditBinding{K::SelectAll, [](KeyHandler& keys) { keys.m_core.box().selectAll(); }, true},
        EditBinding{K::Cut, [](KeyHandler& keys) { keys.m_clipboard.cut(); }},
        EditBinding{K::Paste, [](KeyHandler& keys) { keys.m_clipboard.paste(); }},
        EditBinding{K::Delete, [](KeyHandler& keys) { keys.deleteForward(); }},
        EditBinding{K::DeleteStartOfWord,
                    [](KeyHandler& keys) { keys.deleteWord(Step::WordLeft); }},
        EditBinding{K::DeleteEndOfWord, [](KeyHandler& keys) { keys.deleteWord(Step::WordRight); }},
        EditBinding{K::InsertParagraphSeparator,
                    [](KeyHandler& keys) { keys.m_core.insertText(QStringLiteral("\r\n")); }},
        EditBinding{K::InsertLineSeparator,
                    [](KeyHandler& keys) { keys.m_core.insertText(QString(QChar(0x0B))); }},
    };
    // No platform binds the standard key of this name.
    static constexpr EditBinding backspace{K::Backspace,
                                           [](KeyHandler& keys) { keys.deleteBackward(); }};
    const bool withShiftAtMost =
        (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (event.key() == Qt::Key_Backspace && withShiftAtMost) {
        return &backspace;
    }
    const auto found = std::find_if(bindings.begin(), bindings.end(), [&](const EditBinding& item) {
        return event.matches(item.key);
    });
    return found == bindings.end() ? nullptr : &*found;
}

namespace {

/// Whether Alt, held alone, has made another character than the key's own, as some keyboards do, or
/// a character of no key at all.
bool isComposed(const QKeyEvent& event) {
    const bool hasKey = event.key() != 0 && event.key() != Qt::Key_unknown;
    const auto own = static_cast<char32_t>(event.key());
    return !hasKey || (event.key() < Qt::Key_Escape &&
                       QChar::toUpper(event.text().toUcs4().constFirst()) != QChar::toUpper(own));
}

} // namespace

/// Control and Alt alone make commands; together they are AltGr, which types.
bool KeyHandler::isTyping(const QKeyEvent& event) {
    if (event.text().isEmpty()) {
        return false;
    }
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const bool alt = modifiers.testFlag(Qt::AltModifier);
    if ((control && !alt) || modifiers.testFlag(Qt::MetaModifier)) {
        return false;
    }
    if (alt && !control && !isComposed(event)) {
        return false;
    }
    const QChar first = event.text().at(0);
    // Joiners and direction marks are not printable, yet typed on purpose.
    return first.isPrint() || first.isSurrogate() || first == QLatin1Char('\t') ||
           first.category() == QChar::Other_Format || first.category() == QChar::Other_PrivateUse;
}

bool KeyHandler::handleKey(QKeyEvent& event) {
    SelectionMode mode = SelectionMode::Move;
    if (const MoveBinding* binding = moveBinding(event, mode)) {
        move(*binding, mode);
        return true;
    }
    if (const EditBinding* binding = editBinding(event)) {
        if (binding->inReadOnly || !m_core.isReadOnly()) {
            binding->act(*this);
        }
        return true;
    }
    if (isTyping(event) && !m_core.isReadOnly()) {
        m_core.insertText(event.text());
        return true;
    }
    return false;
}

bool KeyHandler::claims(const QKeyEvent& event) const {
    SelectionMode mode = SelectionMode::Move;
    if (moveBinding(event, mode) != nullptr) {
        return true;
    }
    const EditBinding* binding = editBinding(event);
    if (binding != nullptr) {
        return binding->inReadOnly || !m_core.isReadOnly();
    }
    return isTyping(event) && !m_core.isReadOnly();
}

void KeyHandler::move(const MoveBinding& binding, SelectionMode mode) {
    if (binding.operation == QTextCursor::NoMove) {
        const std::optional<int> target = verticalTarget(binding.step);
        if (target) {
            m_core.moveCaret(*target, mode);
            m_lastVertical = target;
        } else if (mode == SelectionMode::Extend) {
            // Beyond the first or last line the selection takes the rest of it.
            const bool upwards = binding.step == Step::Up || binding.step == Step::PageUp;
            m_core.moveCaret(upwards ? 0 : m_core.box().document().characterCount() - 1, mode);
        }
        return;
    }
    if (binding.step == Step::Left || binding.step == Step::Right) {
        moveBeside(binding, mode);
        return;
    }
    moveLogically(binding, mode);
}

void KeyHandler::moveLogically(const MoveBinding& binding, SelectionMode mode) {
    QTextCursor cursor(&m_core.box().document());
    cursor.setPosition(m_core.caret());
    cursor.movePosition(binding.operation);
    m_core.moveCaret(cursor.position(), mode);
}

void KeyHandler::moveBeside(const MoveBinding& binding, SelectionMode mode) {
    const ViewGeometry& geometry = m_core.geometry();
    const Side side = binding.step == Step::Left ? Side::Left : Side::Right;
    if (mode == SelectionMode::Move && m_core.hasSelection()) {
        m_core.moveCaret(selectionEndOn(side), mode);
    } else if (geometry.isTwoWay(m_core.caret())) {
        m_core.moveCaret(geometry.positionBeside(m_core.caret(), side), mode);
    } else {
        moveLogically(binding, mode);
    }
}

int KeyHandler::selectionEndOn(Side side) const {
    const ViewGeometry& geometry = m_core.geometry();
    const int start = m_core.selectionStart();
    const int end = m_core.selectionEnd();
    const LinePlace line = geometry.lineOfPosition(start);
    const bool startIsLeft = geometry.lineOfPosition(end).number == line.number
                                 ? geometry.caretX(start) <= geometry.caretX(end)
                                 : !isRightToLeft(line.block);
    return startIsLeft == (side == Side::Left) ? start : end;
}

std::optional<int> KeyHandler::verticalTarget(Step step) {
    const ViewGeometry& geometry = m_core.geometry();
    const int caret = m_core.caret();
    if (m_lastVertical != caret) {
        m_wantedX = geometry.caretX(caret);
    }
    const LinePlace from = geometry.lineOfPosition(caret);
    LinePlace to;
    if (step == Step::Up || step == Step::Down) {
        to = geometry.lineByNumber(from.number + (step == Step::Up ? -1 : 1));
    } else {
        const double rows = geometry.viewportSize().height();
        const double middle = geometry.lineRect(from).center().y();
        to = geometry.lineAt(step == Step::PageUp ? middle - rows : middle + rows);
        scrollByPage(step);
    }
    if (to.number == from.number) {
        return std::nullopt;
    }
    return geometry.positionOnLine(to, m_wantedX);
}

void KeyHandler::scrollByPage(Step step) {
    const int rows = m_core.geometry().viewportSize().height();
    m_core.scrollBy(step == Step::PageUp ? -rows : rows);
}

void KeyHandler::removeSelectionOr(int other) {
    if (m_core.hasSelection()) {
        m_core.insertText(QString());
    } else {
        m_core.remove(m_core.caret(), other);
    }
}

void KeyHandler::deleteBackward() {
    // One character, not the whole cluster: an accent that was typed behind its letter goes alone.
    const QTextDocument& document = m_core.box().document();
    const int caret = m_core.caret();
    const bool pair = caret >= 2 && document.characterAt(caret - 1).isLowSurrogate() &&
                      document.characterAt(caret - 2).isHighSurrogate();
    removeSelectionOr(std::max(0, caret - (pair ? 2 : 1)));
}

void KeyHandler::deleteForward() {
    QTextCursor cursor(&m_core.box().document());
    cursor.setPosition(m_core.caret());
    cursor.movePosition(QTextCursor::NextCharacter);
    removeSelectionOr(cursor.position());
}

void KeyHandler::deleteWord(Step step) {
    QTextCursor cursor(&m_core.box().document());
    cursor.setPosition(m_core.caret());
    cursor.movePosition(step == Step::WordLeft ? QTextCursor::PreviousWord : QTextCursor::NextWord);
    removeSelectionOr(cursor.position());
}

} // namespace velmora
