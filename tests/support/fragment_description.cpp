#include "support/fragment_description.h"

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
    return QStringLiteral("%1").arg(red << 16 | green << 8 | blue, 6, 16, QChar(u'0'));
}

QString describe(const CharacterFormat& format) {
    QStringList words;
    const auto add = [&words](bool is, const QString& word) {
        if (is) {
            words.append(word);
        }
    };
    add(format.bold, QStringLiteral("b"));
    add(format.italic, QStringLiteral("i"));
    add(format.underline, QStringLiteral("u"));
    add(format.strikeThrough, QStringLiteral("s"));
    add(format.halfPoints != 24, QString::number(format.halfPoints));
    add(format.color != Black, QStringLiteral("c=") + colorName(format.color));
    add(format.backColor != 0, QStringLiteral("h=") + colorName(format.backColor));
    add(!format.fontName.isEmpty(), QStringLiteral("'%1'").arg(format.fontName));
    return words.join(u' ');
}

QString describe(const ParagraphFormat& format) {
    QStringList words;
    if (format.alignment != Alignment::Left) {
        words.append(format.alignment == Alignment::Right ? QStringLiteral("right")
                                                          : QStringLiteral("centre"));
    }
    if (format.rightToLeft) {
        words.append(QStringLiteral("rtl"));
    }
    if (format.leftOffsetTwips != 0) {
        words.append(QStringLiteral("li%1").arg(format.leftOffsetTwips));
    }
    if (format.firstLineOffsetTwips != 0) {
        words.append(QStringLiteral("fi%1").arg(format.firstLineOffsetTwips));
    }
    return words.isEmpty() ? QString() : QStringLiteral("[%1]").arg(words.join(u' '));
}

QString describe(const RichTextFragment& fragment, bool withEndFormats) {
    QStringList paragraphs;
    const auto formatOf = [&fragment](int index) {
        return describe(fragment.formats.at(static_cast<std::size_t>(index)));
    };
    for (const Paragraph& paragraph : fragment.paragraphs) {
        QString text = describe(paragraph.format);
        int at = 0;
        QString open;
        for (const TextRun& run : paragraph.runs) {
            // Runs that look the same are one, however many they are.
            const QString format = formatOf(run.format);
            if (format != open) {
                text += open.isEmpty() ? QString() : QStringLiteral("}");
                text += format.isEmpty() ? QString() : QStringLiteral("{%1:").arg(format);
                open = format;
            }
            text += paragraph.text.mid(at, run.length);
            at += run.length;
        }
        text += open.isEmpty() ? QString() : QStringLiteral("}");
        if (withEndFormats) {
            text += QStringLiteral("<%1>").arg(formatOf(paragraph.endFormat));
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
    const QByteArray whole = rtf.startsWith("{\\rtf") ? rtf : "{\\rtf1\\ansi " + rtf + "}";
    const RtfReadResult result = readRtf(whole);
    return result.outcome ? describe(result.fragment) : QStringLiteral("failed");
}

QString faultOf(const RichTextFragment& fragment) {
    const auto formatCount = static_cast<int>(fragment.formats.size());
    for (const Paragraph& paragraph : fragment.paragraphs) {
        qsizetype covered = 0;
        for (const TextRun& run : paragraph.runs) {
            if (run.length <= 0 || run.format < 0 || run.format >= formatCount) {
                return QStringLiteral("a run of nothing or without a format");
            }
            covered += run.length;
        }
        if (covered != paragraph.text.size()) {
            return QStringLiteral("runs cover %1 of %2").arg(covered).arg(paragraph.text.size());
        }
        if (paragraph.endFormat < 0 || paragraph.endFormat >= formatCount) {
            return QStringLiteral("an end without a format");
        }
        if (!isStorable(paragraph.text)) {
            return QStringLiteral("characters that no document holds");
        }
    }
    for (const CharacterFormat& format : fragment.formats) {
        if (format.halfPoints < CharacterFormat::MinHalfPoints ||
            format.halfPoints > CharacterFormat::MaxHalfPoints) {
            return QStringLiteral("a font size out of range");
        }
    }
    return {};
}

QString faultOfReading(const QByteArray& rtf) {
    const RtfReadResult read = readRtf(rtf);
    if (!read.outcome) {
        return read.fragment.paragraphs.empty() ? QString() : QStringLiteral("text of a failure");
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
        return QStringLiteral("%1 units of %2 bytes").arg(units).arg(rtf.size());
    }
    const QByteArray written = writeRtf(read.fragment);
    const RtfReadResult again = readRtf(written);
    if (!again.outcome || again.fragment.paragraphs.size() != read.fragment.paragraphs.size() ||
        writeRtf(again.fragment) != written) {
        return QStringLiteral("what is written of it is not read and written the same");
    }
    return {};
}

} // namespace velmora
