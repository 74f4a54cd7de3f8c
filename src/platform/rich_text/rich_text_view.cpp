#include "platform/rich_text/rich_text_view.h"

#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_view_clipboard.h"
#include "platform/rich_text/rich_text_view_private.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>

namespace velmora {

RichTextView::RichTextView(RichTextBox& box, QWidget* parent)
    : QAbstractScrollArea(parent), d(std::make_unique<Private>(*this, box)) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAcceptDrops(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::IBeamCursor);
    installRichTextViewAccessibility();

    d->followDocument();
    connect(&box, &RichTextBox::documentLeaves, this, [this] { d->leaveDocument(); });
    connect(&box, &RichTextBox::documentArrived, this, [this] { d->followDocument(); });
    connect(&box, &RichTextBox::Change, this, [this] { d->textChanged(); });
    connect(&box, &RichTextBox::SelChange, this, [this] { d->selectionChanged(); });
    connect(&box, &RichTextBox::appearanceChanged, this, [this] { d->appearanceChanged(); });
    connect(&d->caret, &CaretBlink::toggled, this, [this] { d->repaintCaret(); });
    connect(&d->mouse, &MouseHandler::dragStarted, this, [this] { d->drag.drag(); });
    connect(&d->inputMethod, &InputMethodHandler::composedChanged, this,
            [this](int position, int length) { d->composedChanged(position, length); });
    d->viewportResized();
}

RichTextView::~RichTextView() = default;

RichTextBox& RichTextView::box() const {
    return d->core.box();
}

// --- scrolling

int RichTextView::firstVisibleLine() const {
    return d->core.geometry().firstVisibleLine();
}

void RichTextView::scrollLineToTop(int line) {
    d->fitScrollBar();
    const LinePlace place = d->core.geometry().lineByNumber(line);
    // The blank row above the first line stays in view with it.
    d->core.scrollTo(place.number == 0 ? 0 : d->core.geometry().lineTop(place));
}

void RichTextView::ensureCaretVisible() {
    d->fitScrollBar();
    d->core.ensureCaretVisible();
}

QRect RichTextView::caretRectAt(int documentPosition) const {
    return d->core.geometry().caretRect(documentPosition);
}

int RichTextView::documentPositionAt(QPointF point) const {
    return d->core.geometry().positionAt(point);
}

void RichTextView::scrollContentsBy(int dx, int dy) {
    Q_UNUSED(dx)
    d->viewportScrolled(dy);
}

void RichTextView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    d->viewportResized();
}

// --- clipboard

void RichTextView::copy() const {
    if (auto mimeData = d->core.selectionData()) {
        QGuiApplication::clipboard()->setMimeData(mimeData.release());
    }
}

void RichTextView::cut() {
    if (!isReadOnly() && d->core.hasSelection()) {
        copy();
        d->core.insertText(QString());
    }
}

void RichTextView::paste() {
    const QMimeData* mimeData = QGuiApplication::clipboard()->mimeData();
    if (mimeData != nullptr && hasText(*mimeData)) {
        d->core.insertIncoming(*mimeData);
    }
}

bool RichTextView::isReadOnly() const {
    return d->core.isReadOnly();
}

void RichTextView::setReadOnly(bool on) {
    d->inputMethod.cancel();
    d->core.setReadOnly(on);
    setAttribute(Qt::WA_InputMethodEnabled, !on);
}

void RichTextView::setIncomingHandler(IncomingHandler handler) {
    d->core.setIncomingHandler(std::move(handler));
}

void RichTextView::setOutgoingLook(OutgoingLook look) {
    d->core.setOutgoingLook(std::move(look));
}

// --- painting and focus

void RichTextView::paintEvent(QPaintEvent* event) {
    d->paint(event->region());
}

void RichTextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) {
        viewport()->update();
    }
}

void RichTextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    d->restartCaret();
}

void RichTextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    d->restartCaret();
}

// --- keys and input method

bool RichTextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        d->keys.claims(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

/// Tab writes a tab; Shift+Tab still leaves, so that the keyboard alone can.
bool RichTextView::focusNextPrevChild(bool next) {
    return (!next || isReadOnly()) && QAbstractScrollArea::focusNextPrevChild(next);
}

void RichTextView::keyPressEvent(QKeyEvent* event) {
    d->restartCaret();
    event->setAccepted(d->keys.handleKey(*event));
}

void RichTextView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Shift) {
        d->mouse.publishSelection();
    }
    event->ignore();
}

void RichTextView::inputMethodEvent(QInputMethodEvent* event) {
    d->inputMethod.handle(*event);
    d->restartCaret();
    d->followCaret();
    event->accept();
}

QVariant RichTextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return inputMethodQuery(query, QVariant());
}

QVariant RichTextView::inputMethodQuery(Qt::InputMethodQuery query,
                                        const QVariant& argument) const {
    const QVariant answer = d->inputMethod.query(query, argument);
    return answer.isValid() ? answer : QAbstractScrollArea::inputMethodQuery(query);
}

// --- mouse, drag and drop

void RichTextView::mousePressEvent(QMouseEvent* event) {
    d->inputMethod.finish();
    d->mouse.press(*event);
    d->restartCaret();
}

void RichTextView::mouseDoubleClickEvent(QMouseEvent* event) {
    d->inputMethod.finish();
    d->mouse.doubleClick(*event);
}

void RichTextView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) {
        const bool onSelection = d->mouse.isOnSelection(event->position());
        viewport()->setCursor(onSelection ? Qt::ArrowCursor : Qt::IBeamCursor);
    }
    d->mouse.move(*event);
}

void RichTextView::mouseReleaseEvent(QMouseEvent* event) {
    d->mouse.release(*event);
}

void RichTextView::dragEnterEvent(QDragEnterEvent* event) {
    d->drag.over(*event);
}

void RichTextView::dragMoveEvent(QDragMoveEvent* event) {
    d->drag.over(*event);
}

void RichTextView::dragLeaveEvent(QDragLeaveEvent* event) {
    Q_UNUSED(event)
    d->drag.leave();
}

void RichTextView::dropEvent(QDropEvent* event) {
    d->drag.drop(*event);
}

} // namespace velmora
