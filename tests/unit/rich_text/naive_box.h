#pragma once

#include "platform/rich_text/fragment_text.h"

#include <QString>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace velmora {

/// What a RichTextBox does, on an array of characters in which a line end is a CR and an LF: slow,
/// and simple enough to be believed. The format of a CR is the end format of its paragraph.
class NaiveBox final {
public:
    struct Character final {
        char16_t unit = 0;
        CharacterFormat format;

        bool operator==(const Character&) const = default;
    };

    std::vector<Character> characters;
    /// One more than there are line ends.
    std::vector<ParagraphFormat> paragraphs{ParagraphFormat()};
    CharacterFormat lastEnd;
    int anchor = 0;
    int caret = 0;
    std::optional<CharacterFormat> typing;

    bool operator==(const NaiveBox&) const = default;

    [[nodiscard]] int size() const { return static_cast<int>(characters.size()); }
    [[nodiscard]] int begin() const { return std::min(anchor, caret); }
    [[nodiscard]] int end() const { return std::max(anchor, caret); }

    [[nodiscard]] QString text(int from, int to) const {
        QString result;
        for (int i = from; i < to; ++i) {
            const char16_t unit = at(i).unit;
            result += QChar(unit == u'\u2028' ? u'\v' : unit);
        }
        return result;
    }

    // --- selection

    void select(int from, int to) {
        const int low = std::clamp(std::min(from, to), 0, size());
        const int high = std::clamp(std::max(from, to), 0, size());
        const int newBegin = snap(low);
        int newEnd = snap(high);
        if (high > low && newEnd == newBegin) {
            newEnd = newBegin + 2;
        }
        const int newAnchor = from <= to ? newBegin : newEnd;
        const int newCaret = from <= to ? newEnd : newBegin;
        if (newAnchor != anchor || newCaret != caret) {
            typing.reset();
        }
        anchor = newAnchor;
        caret = newCaret;
    }

    void find(const QString& needle, int start) {
        const auto found = text(0, size()).toLower().indexOf(needle.toLower(), start);
        if (found >= 0 && !needle.isEmpty()) {
            select(static_cast<int>(found), static_cast<int>(found + needle.size()));
        }
    }

    // --- replacing

    void replace(const RichTextFragment& fragment) {
        const int from = begin();
        const int to = end();
        if (from == to && textOfFragment(fragment).isEmpty()) {
            typing.reset();
            return;
        }
        const size_t first = paragraphAt(from);
        const size_t last = paragraphAt(to);
        const bool inFront = from > 0 && at(from - 1).unit != u'\n';
        const bool behind = to < size() && at(to).unit != u'\r';
        const ParagraphFormat frontFormat = paragraphs[first];
        const ParagraphFormat behindFormat = paragraphs[last];
        const CharacterFormat behindEnd = endFormat(last);
        const std::vector<Character> middle = charactersOf(fragment);
        characters.erase(characters.begin() + from, characters.begin() + to);
        characters.insert(characters.begin() + from, middle.begin(), middle.end());

        std::vector<ParagraphFormat> formats;
        for (const Paragraph& paragraph : fragment.paragraphs) {
            formats.push_back(paragraph.format);
        }
        const bool isSingle = formats.size() <= 1;
        if (formats.empty()) {
            formats.push_back(behindFormat);
        }
        if (inFront) {
            formats.front() = frontFormat;
        } else if (isSingle && behind) {
            formats.front() = behindFormat;
        }
        if (!isSingle && behind) {
            formats.back() = behindFormat;
        }
        const auto place = paragraphs.begin() + static_cast<std::ptrdiff_t>(first);
        paragraphs.insert(
            paragraphs.erase(place, place + static_cast<std::ptrdiff_t>(last - first) + 1),
            formats.begin(), formats.end());

        const bool takesEnd = !fragment.paragraphs.empty() && !behind && (!isSingle || !inFront);
        setEndFormat(first + formats.size() - 1,
                     takesEnd ? formatAt(fragment, fragment.paragraphs.back().endFormat)
                              : behindEnd);
        anchor = caret = from + static_cast<int>(middle.size());
        typing.reset();
    }

    // --- formats

    [[nodiscard]] CharacterFormat typedFormat() const {
        return typing ? *typing : formatAtCaret(caret);
    }

    [[nodiscard]] CharacterFormat replacingFormat() const {
        if (anchor == caret) {
            return typedFormat();
        }
        return at(begin()).unit == u'\r' ? formatAtCaret(begin()) : at(begin()).format;
    }

    [[nodiscard]] CharacterFormat formatAtCaret(int position) const {
        if (isEmptyParagraph(position)) {
            return endFormat(paragraphAt(position));
        }
        const bool startsParagraph = position == 0 || at(position - 1).unit == u'\n';
        return at(startsParagraph ? position : position - 1).format;
    }

    /// The formats that count for the selection: of its characters and its empty paragraphs; of the
    /// ends of other paragraphs only where there is nothing else.
    [[nodiscard]] std::vector<CharacterFormat> selectedFormats() const {
        if (anchor == caret) {
            return {typedFormat()};
        }
        std::vector<CharacterFormat> seen;
        std::vector<CharacterFormat> ends;
        for (int i = begin(); i < end(); ++i) {
            const bool isEnd = at(i).unit == u'\r';
            if (at(i).unit != u'\n') {
                (isEnd && !isEmptyParagraph(i) ? ends : seen).push_back(at(i).format);
            }
        }
        if (holdsLastParagraph()) {
            (isEmptyParagraph(size()) ? seen : ends).push_back(lastEnd);
        }
        return seen.empty() ? ends : seen;
    }

    void changeFormat(const std::function<void(CharacterFormat&)>& change) {
        if (anchor != caret) {
            for (int i = begin(); i < end(); ++i) {
                change(characters[static_cast<size_t>(i)].format);
            }
            if (holdsLastParagraph()) {
                change(lastEnd);
            }
            return;
        }
        CharacterFormat format = typedFormat();
        change(format);
        if (isEmptyParagraph(caret)) {
            setEndFormat(paragraphAt(caret), format);
        } else {
            typing = format;
        }
    }

    [[nodiscard]] std::vector<ParagraphFormat*> selectedParagraphs() {
        size_t last = paragraphAt(end());
        const bool startsParagraph = end() > 0 && at(end() - 1).unit == u'\n';
        if (end() > begin() && startsParagraph && !(end() == size())) {
            --last;
        }
        std::vector<ParagraphFormat*> result;
        for (size_t i = paragraphAt(begin()); i <= last; ++i) {
            result.push_back(&paragraphs[i]);
        }
        return result;
    }

    [[nodiscard]] RichTextFragment fragment() const {
        RichTextFragment result;
        const auto close = [&](const CharacterFormat& end) {
            result.paragraphs.back().endFormat = static_cast<int>(result.formats.size());
            result.paragraphs.back().format = paragraphs[result.paragraphs.size() - 1];
            result.formats.push_back(end);
        };
        result.paragraphs.emplace_back();
        for (const Character& character : characters) {
            if (character.unit == u'\r') {
                close(character.format);
                result.paragraphs.emplace_back();
            } else if (character.unit != u'\n') {
                result.paragraphs.back().text += QChar(character.unit);
                result.paragraphs.back().runs.push_back(
                    {1, static_cast<int>(result.formats.size())});
                result.formats.push_back(character.format);
            }
        }
        close(lastEnd);
        return result;
    }

private:
    [[nodiscard]] const Character& at(int index) const {
        return characters[static_cast<size_t>(index)];
    }

    [[nodiscard]] int snap(int position) const {
        const bool isInside = position > 0 && position < size() &&
                              ((at(position - 1).unit == u'\r' && at(position).unit == u'\n') ||
                               (QChar::isHighSurrogate(at(position - 1).unit) &&
                                QChar::isLowSurrogate(at(position).unit)));
        return isInside ? position - 1 : position;
    }

    [[nodiscard]] size_t paragraphAt(int position) const {
        return static_cast<size_t>(
            std::count_if(characters.begin(), characters.begin() + position,
                          [](const Character& character) { return character.unit == u'\r'; }));
    }

    [[nodiscard]] bool isEmptyParagraph(int position) const {
        return (position == 0 || at(position - 1).unit == u'\n') &&
               (position == size() || at(position).unit == u'\r');
    }

    [[nodiscard]] bool holdsLastParagraph() const {
        int start = size();
        while (start > 0 && at(start - 1).unit != u'\n') {
            --start;
        }
        return end() == size() && begin() <= start;
    }

    /// Index of the CR of a paragraph's line end; size() for the last one.
    [[nodiscard]] int endOfParagraph(size_t paragraph) const {
        int index = 0;
        for (; index < size(); ++index) {
            if (at(index).unit == u'\r' && paragraph-- == 0) {
                break;
            }
        }
        return index;
    }

    [[nodiscard]] const CharacterFormat& endFormat(size_t paragraph) const {
        const int index = endOfParagraph(paragraph);
        return index == size() ? lastEnd : at(index).format;
    }

    void setEndFormat(size_t paragraph, const CharacterFormat& format) {
        const int index = endOfParagraph(paragraph);
        if (index == size()) {
            lastEnd = format;
            return;
        }
        characters[static_cast<size_t>(index)].format = format;
        characters[static_cast<size_t>(index) + 1].format = format;
    }

    static std::vector<Character> charactersOf(const RichTextFragment& fragment) {
        std::vector<Character> result;
        for (const Paragraph& paragraph : fragment.paragraphs) {
            qsizetype done = 0;
            for (const TextRun& run : paragraph.runs) {
                for (const QChar unit : QStringView(paragraph.text).mid(done, run.length)) {
                    result.push_back({unit.unicode(), formatAt(fragment, run.format)});
                }
                done += run.length;
            }
            if (&paragraph != &fragment.paragraphs.back()) {
                const CharacterFormat& format = formatAt(fragment, paragraph.endFormat);
                result.push_back({u'\r', format});
                result.push_back({u'\n', format});
            }
        }
        return result;
    }
};

} // namespace velmora
