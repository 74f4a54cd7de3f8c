#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <string>
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

/// The text alone, a line feed between paragraphs.
inline QString plainText(const RichTextFragment& fragment) {
    QStringList lines;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        lines.append(paragraph.text);
    }
    return lines.join(u'\n');
}

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

/// The words of a text: what stands between white space.
inline QStringList wordsOf(const QString& text) {
    static const QRegularExpression blanks(u"\\s+"_qs,
                                           QRegularExpression::UseUnicodePropertiesOption);
    return text.split(blanks, Qt::SkipEmptyParts);
}

/// Where two texts part, with what stands there; empty for the same text.
inline std::string difference(const QString& left, const QString& right) {
    const auto parted = std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first;
    const qsizetype at = parted - left.begin();
    if (left == right) {
        return {};
    }
    const auto around = [at](const QString& text) {
        return text.mid(std::max<qsizetype>(at - 20, 0), 60).toStdString();
    };
    return "at " + std::to_string(at) + ": [" + around(left) + "] and [" + around(right) + "]";
}

} // namespace velmora
