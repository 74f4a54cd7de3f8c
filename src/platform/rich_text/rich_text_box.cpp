#include "platform/rich_text/rich_text_box.h"

#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box_private.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

#include <QTextBlock>

#include <cmath>
#include <utility>

namespace velmora {

namespace {

constexpr int MaxEditsOfCachedText = 16;
constexpr double MaxZoom = 1000;

QString textOfDocument(const QTextDocument& document) {
    QString text = document.toRawText();
    text.replace(QChar(QChar::LineSeparator), QChar(u'\v'));
    text.replace(QChar(QChar::ParagraphSeparator), QStringLiteral("\r\n"));
    return text;
}

} // namespace

RichTextBox::Private::Private(RichTextBox& owner) : q(&owner) {
    defaultFormat.fontName = QStringLiteral("Arial");
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(0);
    layout = new DocumentLayout(&document);
    document.setDocumentLayout(layout);
    layout->setWrapWidth(DefaultWrapPixels * UnitsPerPixel);
    setContents(document, {}, defaultFormat);
}

RichTextBox::RichTextBox(QObject* parent) : QObject(parent), d(std::make_unique<Private>(*this)) {}

RichTextBox::~RichTextBox() = default;

// --- changes

void RichTextBox::Private::notify(bool changed, std::pair<int, int> oldSelection) {
    const bool moved = selection() != oldSelection;
    if (changed) {
        Q_EMIT q->Change();
    }
    if (moved) {
        Q_EMIT q->SelChange();
    }
}

void RichTextBox::Private::putCaret(int position) {
    anchor = position;
    caret = position;
    typingFormat.reset();
}

/// Somebody may ask for the text while the document signals a change of its own: it would then be
/// kept with the change in it, and patched once more. So it is out of reach until it is patched.
void RichTextBox::Private::replaceInDocument(DocumentRange range,
                                             const RichTextFragment& fragment) {
    std::optional<QString> kept = std::exchange(text, std::nullopt);
    const int edits = editsSinceText + 1;
    const int begin = fromDocument(range.begin);
    const int length = fromDocument(range.end) - begin;
    putCaret(replaceRange(document, range.begin, range.end, fragment));
    if (kept && edits <= MaxEditsOfCachedText) {
        kept->replace(begin, length, textOfFragment(fragment));
    } else {
        kept.reset();
    }
    text = std::move(kept);
    editsSinceText = edits;
}

void RichTextBox::Private::replaceSelection(const RichTextFragment& fragment) {
    const std::pair<int, int> oldSelection = selection();
    const DocumentRange range = selected();
    const bool differs =
        range.isEmpty() ? !textOfFragment(fragment).isEmpty()
                        : !sameContents(fragmentOf(document, range.begin, range.end), fragment);
    if (differs) {
        replaceInDocument(range, fragment);
    } else {
        putCaret(range.end);
    }
    notify(differs, oldSelection);
}

void RichTextBox::Private::replaceAll(const RichTextFragment& fragment,
                                      const RtfOmissions& leftOut) {
    omitted = leftOut;
    const std::pair<int, int> oldSelection = selection();
    const bool differs = setContents(document, fragment, defaultFormat);
    if (differs) {
        text.reset();
    }
    putCaret(0);
    notify(differs, oldSelection);
}

// --- contents

const QString& RichTextBox::Text() const {
    if (!d->text) {
        d->text = textOfDocument(d->document);
    }
    d->editsSinceText = 0;
    return *d->text;
}

void RichTextBox::setText(const QString& text) {
    d->replaceAll(fragmentOfText(text, d->defaultFormat));
}

bool RichTextBox::isEmpty() const {
    return d->endOfDocument() == 0;
}

int RichTextBox::textLength() const {
    return d->fromDocument(d->endOfDocument());
}

QByteArray RichTextBox::TextRTF() const {
    return writeRtf(fragment());
}

Outcome RichTextBox::setTextRTF(const QByteArray& rtf) {
    if (rtf.isEmpty()) {
        d->replaceAll({});
        return Outcome::success();
    }
    const RtfReadResult read = readRtf(rtf);
    if (read.outcome) {
        d->replaceAll(read.fragment, read.omitted);
    }
    return read.outcome;
}

const RtfOmissions& RichTextBox::omitted() const {
    return d->omitted;
}

RichTextFragment RichTextBox::fragment() const {
    return fragmentOf(d->document);
}

void RichTextBox::setFragment(const RichTextFragment& fragment) {
    d->replaceAll(fragment);
}

bool RichTextBox::replaceSelectionWatched(RichTextFragment&& fragment, const Progress& goesOn) {
    constexpr double shareOfFilling = 0.5;
    const DocumentRange range = d->selected();
    RangeReplacement replacement(d->document, range.begin, range.end, fragment.formats);
    const auto count = static_cast<double>(fragment.paragraphs.size());
    bool stopped = false;
    double done = 0;
    for (Paragraph& paragraph : fragment.paragraphs) {
        stopped = !goesOn(shareOfFilling * done++ / count);
        if (stopped) {
            break;
        }
        replacement.add(std::exchange(paragraph, {}));
    }
    d->putCaret(replacement.finish());
    d->text.reset();
    d->layout->layOut([&](double laidOut) {
        stopped = stopped || !goesOn(shareOfFilling + (1 - shareOfFilling) * laidOut);
        return !stopped;
    });
    return !stopped;
}

void RichTextBox::exchangeContents(RichTextBox& other) {
    const double wrapPixels = d->wrapPixels;
    const double otherWrapPixels = other.d->wrapPixels;
    Q_EMIT documentLeaves();
    Q_EMIT other.documentLeaves();
    std::swap(d, other.d);
    std::swap(d->q, other.d->q);
    std::swap(d->defaultFormat, other.d->defaultFormat);
    std::swap(d->backColor, other.d->backColor);
    std::swap(d->zoom, other.d->zoom);
    std::swap(d->redraw, other.d->redraw);
    setWrapWidth(wrapPixels);
    other.setWrapWidth(otherWrapPixels);
    for (RichTextBox* box : {this, &other}) {
        Q_EMIT box->documentArrived();
        Q_EMIT box->Change();
        Q_EMIT box->SelChange();
    }
}

// --- the selection's contents

QString RichTextBox::SelText() const {
    const DocumentRange range = d->selected();
    return textOfFragment(fragmentOf(d->document, range.begin, range.end));
}

void RichTextBox::setSelText(const QString& text) {
    const QTextBlock block = d->document.findBlock(d->selected().begin);
    d->replaceSelection(
        fragmentOfText(text, d->replacingFormat(), fromBlockFormat(block.blockFormat())));
}

QByteArray RichTextBox::SelRTF() const {
    return writeRtf(selectedFragment());
}

Outcome RichTextBox::setSelRTF(const QByteArray& rtf) {
    if (rtf.isEmpty()) {
        d->replaceSelection({});
        return Outcome::success();
    }
    const RtfReadResult read = readRtf(rtf);
    if (read.outcome) {
        d->replaceSelection(read.fragment);
    }
    return read.outcome;
}

RichTextFragment RichTextBox::selectedFragment() const {
    const DocumentRange range = d->selected();
    return range.isEmpty() ? RichTextFragment() : fragmentOf(d->document, range.begin, range.end);
}

void RichTextBox::replaceSelection(const RichTextFragment& fragment) {
    d->replaceSelection(fragment);
}

// --- the whole control

Rgb24 RichTextBox::BackColor() const {
    return d->backColor;
}

void RichTextBox::setBackColor(Rgb24 color) {
    if (d->backColor != color) {
        d->backColor = color;
        Q_EMIT appearanceChanged();
    }
}

const CharacterFormat& RichTextBox::defaultFormat() const {
    return d->defaultFormat;
}

void RichTextBox::setDefaultFormat(const CharacterFormat& format) {
    d->defaultFormat = format;
    if (isEmpty()) {
        d->replaceAll({});
    }
}

double RichTextBox::wrapWidth() const {
    return d->wrapPixels;
}

void RichTextBox::setWrapWidth(double pixels) {
    if (d->wrapPixels != pixels && std::isfinite(pixels)) {
        d->wrapPixels = pixels;
        d->layout->setWrapWidth(pixels * UnitsPerPixel);
        Q_EMIT appearanceChanged();
    }
}

double RichTextBox::zoom() const {
    return d->zoom;
}

void RichTextBox::setZoom(double zoom) {
    if (zoom > 0 && zoom <= MaxZoom && d->zoom != zoom) {
        d->zoom = zoom;
        Q_EMIT appearanceChanged();
    }
}

bool RichTextBox::redraw() const {
    return d->redraw;
}

void RichTextBox::setRedraw(bool on) {
    if (d->redraw != on) {
        d->redraw = on;
        Q_EMIT appearanceChanged();
    }
}

QTextDocument& RichTextBox::document() {
    return d->document;
}

const QTextDocument& RichTextBox::document() const {
    return d->document;
}

DocumentLayout& RichTextBox::layout() const {
    return *d->layout;
}

} // namespace velmora
