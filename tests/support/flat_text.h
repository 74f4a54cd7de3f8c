#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace velmora {

/// A fragment as an array of characters, each with its format; a paragraph's end is a line feed.
/// The simplest form there is, to compare results in.
struct FlatText final {
    QString text;
    std::vector<CharacterFormat> formats;
    std::vector<ParagraphFormat> paragraphs;

    bool operator==(const FlatText&) const = default;
};

inline FlatText flatten(const RichTextFragment& fragment) {
    FlatText flat;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        flat.text += paragraph.text;
        for (const TextRun& run : paragraph.runs) {
            flat.formats.insert(flat.formats.end(), static_cast<std::size_t>(run.length),
                                fragment.formats[static_cast<std::size_t>(run.format)]);
        }
        flat.text += u'\n';
        // The end of a paragraph with text shows nothing of its format.
        flat.formats.push_back(paragraph.text.isEmpty()
                                   ? fragment.formats[static_cast<std::size_t>(paragraph.endFormat)]
                                   : flat.formats.back());
        flat.paragraphs.push_back(paragraph.format);
    }
    return flat;
}

/// The words of a text, parted at everything that is no letter, digit or mark.
inline QStringList wordsOf(const QString& text) {
    QStringList words;
    QString word;
    for (const QChar c : text + u' ') {
        if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate() || c.isSymbol() || c.isPunct()) {
            word += c;
        } else if (!word.isEmpty()) {
            words += word;
            word.clear();
        }
    }
    return words;
}

} // namespace velmora
