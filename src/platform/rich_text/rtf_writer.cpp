#include "platform/rich_text/rtf_writer.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rtf_font_name.h"
#include "platform/rich_text/rtf_state.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

namespace {

/// Longest form of one UTF-16 unit: "\u-32768?", or "\line " and "\tab ".
constexpr qsizetype MaxBytesPerUnit = 9;
/// So much is written between two looks at the room that is left: a whole run may be a book, and
/// room for the longest form of each of its characters would be several times its size.
constexpr qsizetype UnitsPerSlice = 4096;

/// Bytes with room made ahead, so that the inner loops write without asking.
class Output final {
public:
    explicit Output(qsizetype expected) { m_bytes.resize(std::max<qsizetype>(expected, 256)); }

    /// Makes room for so many bytes; what follows may write them without a check.
    char* reserve(qsizetype count) {
        if (m_bytes.size() - m_size < count) {
            m_bytes.resize(std::max(m_bytes.size() * 2, m_size + count));
        }
        return m_bytes.data() + m_size;
    }
    void finish(const char* end) { m_size = end - m_bytes.constData(); }

    void append(std::string_view text) {
        char* const at = reserve(static_cast<qsizetype>(text.size()));
        std::memcpy(at, text.data(), text.size());
        finish(at + text.size());
    }
    /// A control word with its number.
    void append(std::string_view word, int number) {
        append(word);
        std::array<char, 12> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
        append(std::string_view(digits.data(), static_cast<std::size_t>(end.ptr - digits.data())));
    }
    QByteArray take() {
        m_bytes.resize(m_size);
        return std::move(m_bytes);
    }

private:
    QByteArray m_bytes;
    qsizetype m_size = 0;
};

constexpr bool isPlain(char16_t unit) {
    return unit >= 0x20 && unit < 0x7F && unit != u'\\' && unit != u'{' && unit != u'}';
}

char* put(char* at, std::string_view text) {
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

/// Everything but plain ASCII. Control characters have no place in a text and are left out.
char* putSpecial(char* at, char16_t unit) {
    switch (unit) {
    case u'\t':
        return put(at, "\\tab ");
    case 0x0B:
    case QChar::LineSeparator:
        return put(at, "\\line ");
    case u'\\':
    case u'{':
    case u'}':
        *at++ = '\\';
        *at++ = static_cast<char>(unit);
        return at;
    default:
        break;
    }
    if (unit < 0xA0) {
        return at;
    }
    at = put(at, "\\u");
    at = std::to_chars(at, at + 6, static_cast<std::int16_t>(unit)).ptr;
    *at++ = '?';
    return at;
}

void writeText(Output& output, QStringView text) {
    while (!text.isEmpty()) {
        const QStringView slice = text.first(std::min(text.size(), UnitsPerSlice));
        text = text.sliced(slice.size());
        char* at = output.reserve(slice.size() * MaxBytesPerUnit);
        for (const QChar unit : slice) {
            if (isPlain(unit.unicode())) {
                *at++ = static_cast<char>(unit.unicode());
            } else {
                at = putSpecial(at, unit.unicode());
            }
        }
        output.finish(at);
    }
}

/// The fonts and colours that the text uses, in the order of their first use, and the control words
/// of each format.
class FormatTables final {
public:
    explicit FormatTables(const RichTextFragment& fragment) {
        m_words.resize(fragment.formats.size());
        m_numbers.resize(fragment.formats.size(), -1);
        for (const Paragraph& paragraph : fragment.paragraphs) {
            for (const TextRun& run : paragraph.runs) {
                add(fragment, run.format);
            }
            add(fragment, paragraph.endFormat);
        }
        if (m_fonts.isEmpty()) {
            (void)fontNumber(QString());
        }
    }

    void writeHeader(Output& output) const {
        // Text readers look for the font table by its end: two closing braces behind a semicolon.
        output.append("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl");
        for (qsizetype number = 0; number < m_fonts.size(); ++number) {
            output.append("{\\f", static_cast<int>(number));
            output.append("\\fnil ");
            writeText(output, m_fonts[number]);
            output.append(";}");
        }
        output.append("}\r\n{\\colortbl ;");
        for (const Rgb24 color : m_colors) {
            output.append("\\red", static_cast<int>(color & 0xFF));
            output.append("\\green", static_cast<int>(color >> 8 & 0xFF));
            output.append("\\blue", static_cast<int>(color >> 16 & 0xFF));
            output.append(";");
        }
        output.append("}\r\n\\viewkind4\r\n");
    }

    /// Everything that a run of the format begins with, blank included.
    [[nodiscard]] std::string_view words(int format) const {
        const QByteArray& text = m_words[index(format)];
        return {text.constData(), static_cast<std::size_t>(text.size())};
    }
    /// The same number for formats that look the same.
    [[nodiscard]] int number(int format) const { return m_numbers[index(format)]; }

private:
    static std::size_t index(int format) { return static_cast<std::size_t>(format); }

    void add(const RichTextFragment& fragment, int format) {
        if (m_numbers[index(format)] >= 0) {
            return;
        }
        const QByteArray words = wordsOf(fragment.formats[index(format)]);
        const auto known = m_numberOfWords.constFind(words);
        m_numbers[index(format)] =
            known != m_numberOfWords.constEnd() ? *known : static_cast<int>(m_numberOfWords.size());
        m_numberOfWords.insert(words, m_numbers[index(format)]);
        m_words[index(format)] = words;
    }

    QByteArray wordsOf(const CharacterFormat& format) {
        Output words(64);
        words.append("\\plain\\f", fontNumber(format.fontName));
        words.append("\\fs", std::clamp(format.halfPoints, CharacterFormat::MinHalfPoints,
                                        CharacterFormat::MaxHalfPoints));
        words.append(format.bold ? "\\b" : "");
        words.append(format.italic ? "\\i" : "");
        words.append(format.underline ? "\\ul" : "");
        words.append(format.strikeThrough ? "\\strike" : "");
        if ((format.color & White) != Black) {
            words.append("\\cf", colorNumber(format.color));
        }
        if ((format.backColor & White) != 0) {
            // Word processors take the shading for any colour and the marker pen's highlight for
            // some of them only; plain editors know just the highlight, or just \cb.
            const int number = colorNumber(format.backColor);
            words.append("\\chcbpat", number);
            words.append("\\cb", number);
            words.append("\\highlight", number);
        }
        words.append(" ");
        return words.take();
    }

    int fontNumber(const QString& name) {
        const QString written = rtfFontName(name);
        const auto known = m_fontNumbers.constFind(written);
        if (known != m_fontNumbers.constEnd()) {
            return *known;
        }
        m_fontNumbers.insert(written, static_cast<int>(m_fonts.size()));
        m_fonts.append(written);
        return static_cast<int>(m_fonts.size()) - 1;
    }

    int colorNumber(Rgb24 given) {
        const Rgb24 color = given & White;
        const auto known = m_colorNumbers.constFind(color);
        if (known != m_colorNumbers.constEnd()) {
            return *known;
        }
        m_colors.push_back(color);
        m_colorNumbers.insert(color, static_cast<int>(m_colors.size()));
        return static_cast<int>(m_colors.size());
    }

    std::vector<QByteArray> m_words;
    std::vector<int> m_numbers;
    QHash<QByteArray, int> m_numberOfWords;
    QStringList m_fonts;
    QHash<QString, int> m_fontNumbers;
    std::vector<Rgb24> m_colors;
    QHash<Rgb24, int> m_colorNumbers;
};

void writeParagraphFormat(Output& output, const Paragraph& paragraph) {
    const ParagraphFormat& format = paragraph.format;
    // Others do not look at the text: what it tells is written too.
    const bool rightToLeft = isRightToLeft(format.direction, paragraph.text);
    output.append("\\pard");
    if (rightToLeft) {
        output.append("\\rtlpar");
    } else if (format.direction == Direction::LeftToRight) {
        output.append("\\ltrpar");
    }
    if (format.alignment != Alignment::Left) {
        output.append(format.alignment == Alignment::Right ? "\\qr" : "\\qc");
    } else if (rightToLeft) {
        output.append("\\ql"); // others take the right side for such a paragraph unless told
    }
    const auto offset = [&output](std::string_view word, int twips) {
        if (twips != 0) {
            output.append(word, std::clamp(twips, -RtfMaxOffsetTwips, RtfMaxOffsetTwips));
        }
    };
    offset("\\fi", format.firstLineOffsetTwips);
    offset("\\li", format.leftOffsetTwips);
}

void writeParagraph(Output& output, const Paragraph& paragraph, const FormatTables& tables) {
    writeParagraphFormat(output, paragraph);
    const QStringView text(paragraph.text);
    qsizetype at = 0;
    qsizetype runEnd = 0;
    int written = -1;
    for (const TextRun& run : paragraph.runs) {
        runEnd = std::min<qsizetype>(runEnd + run.length, text.size());
        qsizetype length = runEnd - at;
        if (length <= 0) {
            continue;
        }
        // The two halves of a character are one character, whatever formats they have.
        const bool cutsOne = runEnd < text.size() && text[runEnd - 1].isHighSurrogate() &&
                             text[runEnd].isLowSurrogate();
        length += cutsOne ? 1 : 0;
        if (tables.number(run.format) != written) {
            written = tables.number(run.format);
            output.append(tables.words(run.format));
        }
        writeText(output, text.sliced(at, length));
        at += length;
    }
    if (tables.number(paragraph.endFormat) != written) {
        output.append(tables.words(paragraph.endFormat));
    }
}

} // namespace

QByteArray writeRtf(const RichTextFragment& fragment) {
    qsizetype expected = 1024;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        expected += paragraph.text.size() + 40 * static_cast<qsizetype>(paragraph.runs.size() + 1);
    }
    Output output(expected);
    const FormatTables tables(fragment);
    tables.writeHeader(output);
    bool first = true;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        output.append(first ? "" : "\\par\r\n");
        first = false;
        writeParagraph(output, paragraph, tables);
    }
    output.append("}\r\n");
    return output.take();
}

} // namespace velmora
