#include "platform/rich_text/rich_text_view_private.h"

#include "platform/drawing/color.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_view_painting.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextCursor>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

/// One notch of the wheel is three of these: about a line of a script.
constexpr double ScrollStepAtZoom1 = 16;
/// More rectangles than these are painted as one.
constexpr int MaxRectanglesPainted = 8;

} // namespace

RichTextView::Private::Private(RichTextView& view, RichTextBox& box)
    : q(view), core(box, view), damage(core.geometry()),
      keys(core, {[&view] { view.copy(); }, [&view] { view.cut(); }, [&view] { view.paste(); }}),
      mouse(core), drag(core), inputMethod(core), accessibility(view) {}

void RichTextView::Private::followDocument() {
    m_documentChanges = QObject::connect(&core.box().document(), &QTextDocument::contentsChange, &q,
                                         [this](int from, int removed, int added) {
                                             const TextChange change =
                                                 TextChange::of(from, removed, added);
                                             damage.noteChange(change);
                                             accessibility.noteChange(change);
                                         });
}

void RichTextView::Private::leaveDocument() {
    inputMethod.cancel();
    QObject::disconnect(m_documentChanges);
}

void RichTextView::Private::repaint(const QRegion& region) {
    if (core.box().redraw()) {
        q.viewport()->update(region);
    }
}

QRegion RichTextView::Private::selectionRegion(int start, int end) const {
    return start == end ? QRegion() : damage.linesTouching(start, end);
}

void RichTextView::Private::rememberPicture() {
    damage.rememberLines();
    const ViewGeometry& geometry = core.geometry();
    const LinePlace first = geometry.lineAt(0);
    const double rows = first.height * geometry.scale();
    const int hidden = geometry.scrollOffset() - geometry.lineTop(first);
    m_top = {first.start(), rows > 0 ? hidden / rows : 0};
    m_shownStart = core.selectionStart();
    m_shownEnd = core.selectionEnd();
}

void RichTextView::Private::textChanged() {
    inputMethod.cancel();
    accessibility.tellTextChange();
    if (!core.box().redraw()) {
        return;
    }
    QRegion region = damage.hasNotedChange() ? damage.changedLines() : q.viewport()->rect();
    region += selectionRegion(m_shownStart, m_shownEnd);
    rememberPicture();
    repaint(region + selectionRegion(m_shownStart, m_shownEnd));
    fitScrollBar();
    restartCaret();
    followCaret();
}

void RichTextView::Private::selectionChanged() {
    inputMethod.cancel();
    accessibility.tellCaretChange();
    if (!core.box().redraw()) {
        return;
    }
    const int start = core.selectionStart();
    const int end = core.selectionEnd();
    QRegion region;
    if (start != m_shownStart) {
        region += selectionRegion(std::min(start, m_shownStart), std::max(start, m_shownStart));
    }
    if (end != m_shownEnd) {
        region += selectionRegion(std::min(end, m_shownEnd), std::max(end, m_shownEnd));
    }
    const bool anySelection = start != end || m_shownStart != m_shownEnd;
    if (anySelection) {
        repaint(region);
    }
    m_shownStart = start;
    m_shownEnd = end;
    restartCaret();
    followCaret();
}

void RichTextView::Private::composedChanged(int blockPosition, int blockLength) {
    damage.noteChange(TextChange::of(blockPosition, blockLength - 1, blockLength - 1));
    repaint(damage.changedLines());
    rememberPicture();
    fitScrollBar();
    restartCaret();
}

void RichTextView::Private::appearanceChanged() {
    const bool redraw = core.box().redraw();
    if (m_redraw && !redraw) {
        m_caretAtFreeze = core.caret();
    }
    const TopAnchor top = m_top;
    fitScrollBar();
    scrollToAnchor(top);
    const bool thawed = redraw && !m_redraw;
    m_redraw = redraw;
    rememberPicture();
    repaint(q.viewport()->rect());
    updateCaret();
    if (thawed && core.caret() != m_caretAtFreeze) {
        followCaret();
    }
}

void RichTextView::Private::scrollToAnchor(const TopAnchor& anchor) {
    const ViewGeometry& geometry = core.geometry();
    const int last = core.box().document().characterCount() - 1;
    const LinePlace line = geometry.lineOfPosition(std::min(anchor.position, last));
    const double hidden = std::floor(anchor.hiddenPart * line.height * geometry.scale());
    core.scrollTo(std::max(0, geometry.lineTop(line) + static_cast<int>(hidden)));
}

void RichTextView::Private::fitScrollBar() {
    QScrollBar& bar = *q.verticalScrollBar();
    bar.setSingleStep(std::max(1, qRound(ScrollStepAtZoom1 * core.box().zoom())));
    bar.setPageStep(std::max(1, q.viewport()->height()));
    bar.setRange(0, core.geometry().maximumScroll());
}

void RichTextView::Private::followCaret() {
    const RichTextBox& box = core.box();
    const bool wholeText = box.SelLength() > 0 && box.SelLength() == box.textLength();
    if (box.redraw() && !core.isScrollHeld() && !wholeText) {
        core.ensureCaretVisible();
    }
}

void RichTextView::Private::viewportResized() {
    core.geometry().setViewportSize(q.viewport()->size());
    fitScrollBar();
    rememberPicture();
    repaint(q.viewport()->rect());
    updateCaret();
}

void RichTextView::Private::viewportScrolled(int rows) {
    core.geometry().setScrollOffset(q.verticalScrollBar()->value());
    QWidget& viewport = *q.viewport();
    if (std::abs(rows) < viewport.height() && core.box().redraw()) {
        viewport.scroll(0, rows);
        m_shownCaret.translate(0, rows);
    } else {
        repaint(viewport.rect());
    }
    rememberPicture();
    updateCaret();
}

void RichTextView::Private::restartCaret() {
    if (q.hasFocus()) {
        caret.restart();
    } else {
        caret.stop();
    }
    updateCaret();
}

void RichTextView::Private::updateCaret() {
    if (core.box().redraw()) {
        repaintCaret();
        q.updateMicroFocus();
    }
}

void RichTextView::Private::repaintCaret() {
    if (!core.box().redraw()) {
        return;
    }
    const bool shown = caret.isShown() && inputMethod.isCaretShown();
    const QRect now = shown ? core.caretRect() : QRect();
    repaint(QRegion(m_shownCaret) + now);
    m_shownCaret = now;
}

QColor RichTextView::Private::caretColor(int position) const {
    QTextCursor cursor(&core.box().document());
    cursor.setPosition(position);
    const QBrush behind = cursor.charFormat().background();
    return contrastingColor(behind.style() == Qt::NoBrush ? toColor(core.box().BackColor())
                                                          : behind.color());
}

void RichTextView::Private::paint(const QRegion& region) {
    RichTextBox& box = core.box();
    if (!box.redraw()) {
        return;
    }
    PaintState state;
    state.background = toColor(box.BackColor());
    state.selection = selectionColors(q.palette(), state.background);
    state.selectionStart = core.selectionStart();
    state.selectionEnd = core.selectionEnd();
    if (const std::optional<int> dropPosition = drag.dropPosition()) {
        state.caret = core.geometry().caretRect(*dropPosition);
        state.caretColor = caretColor(*dropPosition);
    } else if (!m_shownCaret.isEmpty()) {
        state.caret = m_shownCaret;
        state.caretColor = caretColor(core.caret());
    }
    QPainter painter(q.viewport());
    const auto paintPart = [&](const QRect& part) {
        painter.setClipRect(part);
        paintText(painter, box.document(), core.geometry(), state, part);
    };
    if (region.rectCount() > MaxRectanglesPainted) {
        paintPart(region.boundingRect());
    } else {
        std::for_each(region.begin(), region.end(), paintPart);
    }
}

} // namespace velmora
