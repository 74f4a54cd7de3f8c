#include "platform/rich_text/rich_text_box_private.h"

#include <QTextBlock>

#include <algorithm>

namespace velmora {

// --- positions

/// Control position of a paragraph's beginning = its position + its number, for each line end in
/// front of it counts one more; so the paragraph is found by bisection over the numbers.
RichTextBox::Private::Snapped RichTextBox::Private::snap(int controlPosition) const {
    int low = 0;
    int high = document.blockCount() - 1;
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (document.findBlockByNumber(middle).position() + middle <= controlPosition) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    const QTextBlock block = document.findBlockByNumber(low);
    const int begin = block.position();
    const int textLength = block.length() - 1;
    const int offset = std::max(0, controlPosition - (begin + low));
    const int position = begin + std::min(offset, textLength);
    if (offset > textLength) {
        return {position, std::min(position + 1, endOfDocument())};
    }
    if (offset > 0 && offset < textLength && document.characterAt(position).isLowSurrogate() &&
        document.characterAt(position - 1).isHighSurrogate()) {
        return {position - 1, position + 1};
    }
    return {position, position};
}

int RichTextBox::Private::fromDocument(int position) const {
    const int limited = std::clamp(position, 0, endOfDocument());
    return limited + document.findBlock(limited).blockNumber();
}

DocumentRange RichTextBox::Private::selected() const {
    return {std::min(anchor, caret), std::max(anchor, caret)};
}

/// Both ends snap downwards; but half a line end or half a surrogate pair alone is taken whole, so
/// that a walk in single steps meets every character.
DocumentRange RichTextBox::Private::rangeOf(int controlPosition, int length) const {
    const Snapped begin = snap(controlPosition);
    if (length <= 0) {
        return {begin.position, begin.position};
    }
    const int limit = fromDocument(endOfDocument());
    const Snapped end = snap(length < limit - controlPosition ? controlPosition + length : limit);
    return {begin.position, end.position == begin.position ? end.behindUnit : end.position};
}

void RichTextBox::Private::setSelection(int newAnchor, int newCaret) {
    const std::pair<int, int> oldSelection = selection();
    if (oldSelection == std::pair(newAnchor, newCaret)) {
        return;
    }
    anchor = newAnchor;
    caret = newCaret;
    typingFormat.reset();
    notify(false, oldSelection);
}

int RichTextBox::toDocument(int position) const {
    return d->snap(position).position;
}

int RichTextBox::fromDocument(int position) const {
    return d->fromDocument(position);
}

// --- selection

int RichTextBox::SelStart() const {
    return d->fromDocument(d->selected().begin);
}

void RichTextBox::setSelStart(int position) {
    const int caret = toDocument(position);
    d->setSelection(caret, caret);
}

int RichTextBox::SelLength() const {
    return d->fromDocument(d->selected().end) - SelStart();
}

void RichTextBox::setSelLength(int length) {
    const DocumentRange range = d->rangeOf(SelStart(), length);
    d->setSelection(range.begin, range.end);
}

void RichTextBox::select(int anchor, int caret) {
    const int begin = std::max(0, std::min(anchor, caret));
    const int end = std::max(anchor, caret);
    const DocumentRange range = d->rangeOf(begin, end - begin);
    const bool isForward = caret >= anchor;
    d->setSelection(isForward ? range.begin : range.end, isForward ? range.end : range.begin);
}

void RichTextBox::selectAll() {
    d->setSelection(0, d->endOfDocument());
}

int RichTextBox::caretPosition() const {
    return d->fromDocument(d->caret);
}

} // namespace velmora
