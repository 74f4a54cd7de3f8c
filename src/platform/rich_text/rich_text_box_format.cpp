#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/fragment_format_numbers.h"
#include "platform/rich_text/rich_text_box_private.h"

#include <QTextCursor>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace velmora {

namespace {

/// A stretch of the document that gets one format.
struct Stretch final {
    int position = 0;
    int length = 0;
    int format = 0;
    bool differs = false;
};

/// What a change makes of the formats of a range: as few stretches as possible.
class FormatPlan final {
public:
    FormatPlan(const QTextDocument& document, DocumentRange range,
               const std::function<void(CharacterFormat&)>& change)
        : m_oldFormats(document.allFormats()), m_change(change) {
        visitCells(document, range, [this](const FormatCell& cell) {
            add(cell);
            return true;
        });
    }

    /// Returns whether anything differed.
    bool apply(QTextDocument& document) const {
        bool differs = false;
        QTextCursor cursor(&document);
        cursor.beginEditBlock();
        for (const Stretch& stretch : m_stretches) {
            if (!stretch.differs) {
                continue;
            }
            differs = true;
            const QTextCharFormat& format = m_newFormats[static_cast<size_t>(stretch.format)];
            if (stretch.position < 0) {
                cursor.setPosition(0);
                cursor.setBlockCharFormat(format);
            }
            cursor.setPosition(std::max(0, stretch.position));
            cursor.setPosition(stretch.position + stretch.length, QTextCursor::KeepAnchor);
            if (cursor.hasSelection()) {
                cursor.setCharFormat(format);
            }
        }
        cursor.endEditBlock();
        return differs;
    }

private:
    struct Changed final {
        int format = 0;
        bool differs = false;
    };

    void add(const FormatCell& cell) {
        const auto [place, isNew] = m_changed.try_emplace(cell.formatIndex);
        if (isNew) {
            place->second = changed(m_oldFormats.at(cell.formatIndex).toCharFormat());
        }
        const Changed& target = place->second;
        if (!m_stretches.empty()) {
            Stretch& last = m_stretches.back();
            if (last.format == target.format && last.position + last.length == cell.position) {
                last.length += cell.length;
                last.differs = last.differs || target.differs;
                return;
            }
        }
        m_stretches.push_back({cell.position, cell.length, target.format, target.differs});
    }

    Changed changed(const QTextCharFormat& oldFormat) {
        const CharacterFormat before = fromTextFormat(oldFormat);
        CharacterFormat after = before;
        m_change(after);
        const auto [number, isNew] = m_numbers.of(after);
        if (isNew) {
            m_newFormats.push_back(toTextFormat(after));
        }
        return {number, before != after};
    }

    QList<QTextFormat> m_oldFormats;
    const std::function<void(CharacterFormat&)>& m_change;
    std::vector<QTextCharFormat> m_newFormats;
    /// Places in m_newFormats.
    FormatNumbers m_numbers;
    std::unordered_map<int, Changed> m_changed;
    std::vector<Stretch> m_stretches;
};

void setEndFormat(QTextDocument& document, int position, const QTextCharFormat& format) {
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.setPosition(position);
    cursor.setBlockCharFormat(format);
    cursor.endEditBlock();
}

} // namespace

CharacterFormat RichTextBox::Private::formatAtCaret(int position) const {
    const QTextBlock block = document.findBlock(position);
    if (block.length() == 1) {
        return fromTextFormat(block.charFormat());
    }
    const int character = std::max(block.position(), position - 1);
    auto part = block.begin();
    while (!part.atEnd() && !part.fragment().contains(character)) {
        ++part;
    }
    return fromTextFormat(part.atEnd() ? block.charFormat() : part.fragment().charFormat());
}

CharacterFormat RichTextBox::Private::typedFormat() const {
    return typingFormat ? *typingFormat : formatAtCaret(caret);
}

CharacterFormat RichTextBox::Private::replacingFormat() const {
    const DocumentRange range = selected();
    if (range.isEmpty()) {
        return typedFormat();
    }
    const QTextBlock block = document.findBlock(range.begin);
    const bool beginsWithText = range.begin < block.position() + block.length() - 1;
    return formatAtCaret(beginsWithText ? range.begin + 1 : range.begin);
}

template<typename Value>
std::optional<Value> RichTextBox::Private::shared(Value CharacterFormat::*member) const {
    const DocumentRange range = selected();
    if (range.isEmpty()) {
        return typedFormat().*member;
    }
    const QList<QTextFormat> formats = document.allFormats();
    std::optional<Value> ofText;
    std::optional<Value> ofEnds;
    std::unordered_set<int> seenText;
    std::unordered_set<int> seenEnds;
    bool textDiffers = false;
    bool endsDiffer = false;
    visitCells(document, range, [&](const FormatCell& cell) {
        const bool counts = !cell.isEnd || cell.ofEmptyParagraph;
        if (!(counts ? seenText : seenEnds).insert(cell.formatIndex).second) {
            return true;
        }
        const Value value = fromTextFormat(formats.at(cell.formatIndex).toCharFormat()).*member;
        std::optional<Value>& shared = counts ? ofText : ofEnds;
        (counts ? textDiffers : endsDiffer) |= shared && *shared != value;
        shared = value;
        return !textDiffers;
    });
    if (ofText) {
        return textDiffers ? std::nullopt : ofText;
    }
    return endsDiffer ? std::nullopt : ofEnds;
}

void RichTextBox::Private::changeFormat(const FormatChange& change) {
    const DocumentRange range = selected();
    if (!range.isEmpty()) {
        notify(FormatPlan(document, range, change).apply(document), selection());
        return;
    }
    const CharacterFormat before = typedFormat();
    CharacterFormat after = before;
    change(after);
    if (document.findBlock(caret).length() > 1) {
        typingFormat = after;
    } else if (after != before) {
        setEndFormat(document, caret, toTextFormat(after));
        notify(true, selection());
    }
}

std::pair<QTextBlock, QTextBlock> RichTextBox::Private::selectedParagraphs() const {
    const DocumentRange range = selected();
    const QTextBlock first = document.findBlock(range.begin);
    QTextBlock last = document.findBlock(range.end);
    const bool touchesOnlyItsBeginning = last != first && range.end == last.position();
    const bool isEmptyLast = last.length() == 1 && !last.next().isValid();
    if (touchesOnlyItsBeginning && !isEmptyLast) {
        last = last.previous();
    }
    return {first, last};
}

void RichTextBox::Private::changeParagraphs(const ParagraphChange& change) {
    const auto [first, last] = selectedParagraphs();
    const int afterLast = last.blockNumber() + 1;
    bool differs = false;
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    QTextBlock block = first;
    for (int number = first.blockNumber(); number < afterLast; ++number, block = block.next()) {
        const ParagraphFormat before = fromBlockFormat(block.blockFormat());
        ParagraphFormat after = before;
        change(after);
        if (after != before) {
            differs = true;
            cursor.setPosition(block.position());
            cursor.setBlockFormat(toBlockFormat(after));
        }
    }
    cursor.endEditBlock();
    notify(differs, selection());
}

// --- character formats

std::optional<Rgb24> RichTextBox::SelColor() const {
    return d->shared(&CharacterFormat::color);
}

void RichTextBox::setSelColor(Rgb24 color) {
    d->changeFormat([color](CharacterFormat& format) { format.color = color & White; });
}

std::optional<Rgb24> RichTextBox::SelBackColor() const {
    return d->shared(&CharacterFormat::backColor);
}

void RichTextBox::setSelBackColor(Rgb24 color) {
    d->changeFormat([color](CharacterFormat& format) { format.backColor = color & White; });
}

std::optional<QString> RichTextBox::SelFontName() const {
    return d->shared(&CharacterFormat::fontName);
}

void RichTextBox::setSelFontName(const QString& name) {
    d->changeFormat([&name](CharacterFormat& format) { format.fontName = name; });
}

std::optional<double> RichTextBox::SelFontSize() const {
    const std::optional<int> halfPoints = d->shared(&CharacterFormat::halfPoints);
    return halfPoints ? std::optional<double>(*halfPoints / 2.0) : std::nullopt;
}

void RichTextBox::setSelFontSize(double points) {
    constexpr double most = CharacterFormat::MaxHalfPoints;
    if (std::isnan(points)) {
        return;
    }
    const double halves = std::clamp(points * 2, double{CharacterFormat::MinHalfPoints}, most);
    d->changeFormat([halves](CharacterFormat& format) {
        format.halfPoints = static_cast<int>(std::lround(halves));
    });
}

std::optional<bool> RichTextBox::SelBold() const {
    return d->shared(&CharacterFormat::bold);
}

void RichTextBox::setSelBold(bool on) {
    d->changeFormat([on](CharacterFormat& format) { format.bold = on; });
}

std::optional<bool> RichTextBox::SelItalic() const {
    return d->shared(&CharacterFormat::italic);
}

void RichTextBox::setSelItalic(bool on) {
    d->changeFormat([on](CharacterFormat& format) { format.italic = on; });
}

std::optional<bool> RichTextBox::SelUnderline() const {
    return d->shared(&CharacterFormat::underline);
}

void RichTextBox::setSelUnderline(bool on) {
    d->changeFormat([on](CharacterFormat& format) { format.underline = on; });
}

std::optional<bool> RichTextBox::SelStrikeThru() const {
    return d->shared(&CharacterFormat::strikeThrough);
}

void RichTextBox::setSelStrikeThru(bool on) {
    d->changeFormat([on](CharacterFormat& format) { format.strikeThrough = on; });
}

// --- paragraph formats

std::optional<Alignment> RichTextBox::SelAlignment() const {
    const auto [first, last] = d->selectedParagraphs();
    const Alignment alignment = fromBlockFormat(first.blockFormat()).alignment;
    for (QTextBlock block = first; block != last;) {
        block = block.next();
        if (fromBlockFormat(block.blockFormat()).alignment != alignment) {
            return std::nullopt;
        }
    }
    return alignment;
}

void RichTextBox::setSelAlignment(Alignment alignment) {
    d->changeParagraphs([alignment](ParagraphFormat& format) { format.alignment = alignment; });
}

bool RichTextBox::SelHasOffset() const {
    const auto [first, last] = d->selectedParagraphs();
    for (QTextBlock block = first;; block = block.next()) {
        const ParagraphFormat format = fromBlockFormat(block.blockFormat());
        if (format.leftOffsetTwips != 0 || format.firstLineOffsetTwips != 0) {
            return true;
        }
        if (block == last) {
            return false;
        }
    }
}

void RichTextBox::clearSelOffset() {
    d->changeParagraphs([](ParagraphFormat& format) {
        format.leftOffsetTwips = 0;
        format.firstLineOffsetTwips = 0;
    });
}

} // namespace velmora
