#include "support/fragment_description.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

#include <QStringList>

#include <algorithm>

namespace velmora {

namespace {

QString colorName(Rgb24 color) {
    const uint red = color & 0xFF;
    const uint green = color >> 8 & 0xFF;
    const uint blue = color >> 16 & 0xFF;
    return u"%1"_qs.arg(red << 16 | green << 8 | blue, 6, 16, QChar(u'0'));
}

QString describe(const CharacterFormat& format) {
    QStringList words;
    const auto add = [&words](bool is, const QString& word) {
        if (is) {
            words.append(word);
        }
    };
    add(format.bold, u"b"_qs);
    add(format.italic, u"i"_qs);
    add(format.underline, u"u"_qs);
    add(format.strikeThrough, u"s"_qs);
    add(format.halfPoints != 24, QString::number(format.halfPoints));
    add(format.color != Black, u"c="_qs + colorName(format.color));
    add(format.backColor != 0, u"h="_qs + colorName(format.backColor));
    add(!format.fontName.isEmpty(), u"'%1'"_qs.arg(format.fontName));
    return words.join(u' ');
}

/// A direction that the text has of itself is not told apart from one that was asked for.
QString describeFormat(const Paragraph& paragraph) {
    const ParagraphFormat& format = paragraph.format;
    QStringList words;
    if (format.alignment != Alignment::Left) {
        words.append(format.alignment == Alignment::Right ? u"right"_qs : u"centre"_qs);
    }
    if (isRightToLeft(format.direction, paragraph.text)) {
        words.append(u"rtl"_qs);
    } else if (format.direction == Direction::LeftToRight) {
        words.append(u"ltr"_qs);
    }
    if (format.leftOffsetTwips != 0) {
        words.append(u"li%1"_qs.arg(format.leftOffsetTwips));
    }
    if (format.firstLineOffsetTwips != 0) {
        words.append(u"fi%1"_qs.arg(format.firstLineOffsetTwips));
    }
    return words.isEmpty() ? QString() : u"[%1]"_qs.arg(words.join(u' '));
}

QString describe(const RichTextFragment& fragment, bool withEndFormats) {
    QStringList paragraphs;
    const auto formatOf = [&fragment](int index) {
        return describe(fragment.formats.at(static_cast<std::size_t>(index)));
    };
    for (const Paragraph& paragraph : fragment.paragraphs) {
        QString text = describeFormat(paragraph);
        int at = 0;
        QString open;
        for (const TextRun& run : paragraph.runs) {
            // Runs that look the same are one, however many they are.
            const QString format = formatOf(run.format);
            if (format != open) {
                text += open.isEmpty() ? QString() : u"}"_qs;
                text += format.isEmpty() ? QString() : u"{%1:"_qs.arg(format);
                open = format;
            }
            text += paragraph.text.mid(at, run.length);
            at += run.length;
        }
        text += open.isEmpty() ? QString() : u"}"_qs;
        if (withEndFormats) {
            text += u"<%1>"_qs.arg(formatOf(paragraph.endFormat));
        }
        paragraphs.append(text.replace(QChar::LineSeparator, u'/'));
    }
    return paragraphs.join(u'|');
}

bool isStorable(QStringView text) {
    if (!text.isValidUtf16()) {
        return false;
    }
    return std::none_of(text.begin(), text.end(), [](QChar unit) {
        const char16_t code = unit.unicode();
        const bool control = (code < 0x20 && code != u'\t') || (code >= 0x7F && code < 0xA0);
        const bool mark = (code >= 0xFDD0 && code <= 0xFDEF) || code == 0xFFFC || code >= 0xFFFE;
        return control || mark || code == QChar::ParagraphSeparator;
    });
}

} // namespace

QString describe(const RichTextFragment& fragment) {
    return describe(fragment, false);
}

QString describeAll(const RichTextFragment& fragment) {
    return describe(fragment, true);
}

QString describeRtf(const QByteArray& rtf) {
    const QByteArray whole =
        rtf.startsWith("{\\rtf") || rtf.startsWith('\xEF') ? rtf : "{\\rtf1\\ansi " + rtf + "}";
    const RtfReadResult result = readRtf(whole);
    return result.outcome ? describe(result.fragment) : u"failed"_qs;
}

QString faultOf(const RichTextFragment& fragment) {
    const auto formatCount = static_cast<int>(fragment.formats.size());
    for (const Paragraph& paragraph : fragment.paragraphs) {
        qsizetype covered = 0;
        for (const TextRun& run : paragraph.runs) {
            if (run.length <= 0 || run.format < 0 || run.format >= formatCount) {
                return u"a run of nothing or without a format"_qs;
            }
            covered += run.length;
        }
        if (covered != paragraph.text.size()) {
            return u"runs cover %1 of %2"_qs.arg(covered).arg(paragraph.text.size());
        }
        if (paragraph.endFormat < 0 || paragraph.endFormat >= formatCount) {
            return u"an end without a format"_qs;
        }
        if (!isStorable(paragraph.text)) {
            return u"characters that no document holds"_qs;
        }
    }
    for (const CharacterFormat& format : fragment.formats) {
        if (format.halfPoints < CharacterFormat::MinHalfPoints ||
            format.halfPoints > CharacterFormat::MaxHalfPoints) {
            return u"a font size out of range"_qs;
        }
    }
    return {};
}

QString faultOfReading(const QByteArray& rtf) {
    const RtfReadResult read = readRtf(rtf);
    if (!read.outcome) {
        return read.fragment.paragraphs.empty() ? QString() : u"text of a failure"_qs;
    }
    if (const QString fault = faultOf(read.fragment); !fault.isEmpty()) {
        return fault;
    }
    // No input grows: a character takes a byte at least, and so does a paragraph's end.
    qsizetype units = 0;
    for (const Paragraph& paragraph : read.fragment.paragraphs) {
        units += paragraph.text.size() + 1;
    }
    if (read.fragment.paragraphs.empty() || units > rtf.size() + 1) {
        return u"%1 units of %2 bytes"_qs.arg(units).arg(rtf.size());
    }
    const QByteArray written = writeRtf(read.fragment);
    const RtfReadResult again = readRtf(written);
    if (!again.outcome || again.fragment.paragraphs.size() != read.fragment.paragraphs.size() ||
        writeRtf(again.fragment) != written) {
        return u"what is written of it is not read and written the same"_qs;
    }
    return {};
}

} // namespace velmora
