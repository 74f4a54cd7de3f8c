#pragma once

#include "platform/rich_text/format_cells.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_reader.h"

#include <functional>
#include <utility>

namespace velmora {

/// State of a RichTextBox and the few operations that all others are made of. Positions in here are
/// those of the QTextDocument, where a line end counts as one, unless they are called control
/// positions.
class RichTextBox::Private final {
public:
    /// What a new control wraps at, in 96-dpi pixels: the script's column at the smallest margin.
    static constexpr double DefaultWrapPixels = 298;

    explicit Private(RichTextBox& owner);

    // --- positions (rich_text_box_selection.cpp)
    [[nodiscard]] int endOfDocument() const { return document.characterCount() - 1; }
    /// A control position that lies inside a line end or a surrogate pair snaps in front of it.
    struct Snapped final {
        int position = 0;
        /// Position behind the line end or pair that was snapped out of; else equal to position.
        int behindUnit = 0;
    };
    [[nodiscard]] Snapped snap(int controlPosition) const;
    [[nodiscard]] int fromDocument(int position) const;
    [[nodiscard]] DocumentRange selected() const;
    [[nodiscard]] DocumentRange rangeOf(int controlPosition, int length) const;
    void setSelection(int newAnchor, int newCaret);

    // --- changes (rich_text_box.cpp)
    /// Replaces the selection, puts the caret behind, and signals.
    void replaceSelection(const RichTextFragment& fragment);
    /// Replaces everything and puts the caret at the beginning.
    void replaceAll(const RichTextFragment& fragment, const RtfOmissions& leftOut = {});
    /// Signals a change of the contents, and of the selection where it is no longer the old one.
    void notify(bool changed, std::pair<int, int> oldSelection);
    [[nodiscard]] std::pair<int, int> selection() const { return {anchor, caret}; }
    /// Moves the caret without a signal; the selection becomes empty.
    void putCaret(int position);
    /// Replaces a range, patches the cached text and puts the caret behind; without a signal of
    /// the box.
    void replaceInDocument(DocumentRange range, const RichTextFragment& fragment);

    // --- formats (rich_text_box_format.cpp)
    using FormatChange = std::function<void(CharacterFormat&)>;
    using ParagraphChange = std::function<void(ParagraphFormat&)>;
    /// The format of the character in front of a position; of the one behind it at the beginning of
    /// a paragraph, of the paragraph's end where that is empty.
    [[nodiscard]] CharacterFormat formatAtCaret(int position) const;
    /// What is typed next at the caret.
    [[nodiscard]] CharacterFormat typedFormat() const;
    /// What text that replaces the selection looks like: its first character.
    [[nodiscard]] CharacterFormat replacingFormat() const;
    void changeFormat(const FormatChange& change);
    void changeParagraphs(const ParagraphChange& change);
    /// The value that all characters of the selection share. The ends of paragraphs count only
    /// where nothing else is there to see.
    template<typename Value>
    [[nodiscard]] std::optional<Value> shared(Value CharacterFormat::*member) const;
    /// The paragraphs that the selection touches: first and last.
    [[nodiscard]] std::pair<QTextBlock, QTextBlock> selectedParagraphs() const;

    /// Whose state it is: two controls may exchange theirs.
    RichTextBox* q;
    QTextDocument document;
    /// Owned by the document.
    DocumentLayout* layout = nullptr;
    /// Where the selection began, and its caret. Plain numbers: a QTextCursor would shape the line
    /// of the caret at each movement.
    int anchor = 0;
    int caret = 0;
    CharacterFormat defaultFormat;
    /// Set by a setter at an empty selection, dropped by the next movement of the caret.
    std::optional<CharacterFormat> typingFormat;
    /// Of the contents that came in last, as a whole.
    RtfOmissions omitted;
    Rgb24 backColor = White;
    double wrapPixels = DefaultWrapPixels;
    double zoom = 1;
    bool redraw = true;
    /// Text(), kept up to date by edits for as long as somebody asks for it.
    mutable std::optional<QString> text;
    /// Edits since Text() was asked for; after a few the cache is not worth its upkeep.
    mutable int editsSinceText = 0;
};

} // namespace velmora
