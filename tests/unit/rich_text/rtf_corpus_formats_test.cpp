#include "rtf_corpus.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rtf_reader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velmora {
namespace {

/// A paragraph's text, how each of its characters looks as far as both readers tell it (fonts are
/// not told), and its own format.
struct LookedAt final {
    QString text;
    QStringList looks;
    QString paragraphFormat;

    void append(const QString& piece, const QString& look) {
        text += folded(piece);
        while (looks.size() < text.size()) {
            looks.append(look);
        }
    }
};

struct Word final {
    QString text;
    QString formats;
    QString paragraphFormat;
};

QString lookOf(bool bold, bool italic, bool underline, bool strike, double points, Rgb24 color,
               Rgb24 back) {
    return u"%1%2%3%4 %5 %6/%7"_qs.arg(bold ? u"b"_qs : QString(), italic ? u"i"_qs : QString(),
                                       underline ? u"u"_qs : QString(),
                                       strike ? u"s"_qs : QString(), QString::number(points),
                                       QString::number(color, 16), QString::number(back, 16));
}

/// Twips are compared to the nearest 10: the other reader tells hundredths of a millimetre,
/// rounded.
QString paragraphLook(const QString& alignment, bool rtl, double left, double first) {
    return u"%1%2 %3 %4"_qs.arg(alignment, rtl ? u" rtl"_qs : QString(),
                                QString::number(qRound(left / 10)),
                                QString::number(qRound(first / 10)));
}

Rgb24 colorOf(const QString& name) {
    const uint value = name.mid(1).toUInt(nullptr, 16); // none is 0, as automatic is here
    return (value & 0xFF) << 16 | (value & 0xFF00) | value >> 16;
}

QList<LookedAt> looksOf(const QJsonArray& paragraphs) {
    QList<LookedAt> result;
    for (const QJsonValueConstRef value : paragraphs) {
        const QJsonObject paragraph = value.toObject();
        const auto twips = [&paragraph](const QString& key) {
            return paragraph.value(key).toString(u"0in"_qs).chopped(2).toDouble() * 1440;
        };
        QString alignment = paragraph.value(u"align"_qs).toString(u"left"_qs);
        alignment = alignment == u"justify"_qs ? u"left"_qs : alignment;
        LookedAt& looked = result.emplace_back();
        looked.paragraphFormat = paragraphLook(alignment, paragraph.contains(u"rtl"_qs),
                                               twips(u"li"_qs), twips(u"fi"_qs));
        for (const QJsonValueConstRef part : paragraph.value(u"runs"_qs).toArray()) {
            const QJsonObject run = part.toObject();
            const auto has = [&run](const QString& key) { return run.contains(key); };
            looked.append(run.value(u"t"_qs).toString(),
                          lookOf(has(u"b"_qs), has(u"i"_qs), has(u"u"_qs),
                                 has(u"s"_qs) || has(u"strike"_qs), run.value(u"sz"_qs).toDouble(),
                                 colorOf(run.value(u"fg"_qs).toString()),
                                 colorOf(run.value(u"bg"_qs).toString())));
        }
    }
    return result;
}

QList<LookedAt> looksOf(const RichTextFragment& fragment) {
    static const QString Alignments[] = {u"left"_qs, u"right"_qs, u"center"_qs};
    QList<LookedAt> result;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        const ParagraphFormat& own = paragraph.format;
        LookedAt& looked = result.emplace_back();
        looked.paragraphFormat = paragraphLook(Alignments[static_cast<int>(own.alignment)],
                                               isRightToLeft(own.direction, paragraph.text),
                                               own.leftOffsetTwips, own.firstLineOffsetTwips);
        qsizetype at = 0;
        for (const TextRun& run : paragraph.runs) {
            const CharacterFormat& format = fragment.formats[static_cast<std::size_t>(run.format)];
            looked.append(paragraph.text.mid(at, run.length),
                          lookOf(format.bold, format.italic, format.underline, format.strikeThrough,
                                 format.halfPoints / 2.0, format.color, format.backColor));
            at += run.length;
        }
    }
    return result;
}

QList<Word> wordsOf(const QList<LookedAt>& paragraphs) {
    QList<Word> words;
    for (const LookedAt& paragraph : paragraphs) {
        qsizetype lineStart = 0;
        for (const QString& line : paragraph.text.split(u'\n')) {
            bool inWord = false;
            for (qsizetype at = labelLength(line); at < line.size(); ++at) {
                if (line.at(at).isSpace()) {
                    inWord = false;
                    continue;
                }
                if (!inWord) {
                    words.append({{}, {}, paragraph.paragraphFormat});
                }
                inWord = true;
                words.back().text += line.at(at);
                const QString& look = paragraph.looks.at(lineStart + at);
                if (!words.back().formats.endsWith(look)) {
                    words.back().formats += u'|' + look;
                }
            }
            lineStart += line.size() + 1;
        }
    }
    return words;
}

/// The first word that looks otherwise. Words that only one side has are passed over within a short
/// reach: that the text agrees is another test's business.
QString firstDifference(const QList<Word>& expected, const QList<Word>& actual, bool ofParagraphs,
                        qsizetype& compared) {
    constexpr qsizetype Reach = 40;
    qsizetype other = 0;
    for (const Word& word : expected) {
        qsizetype at = other;
        while (at < actual.size() && at < other + Reach && actual.at(at).text != word.text) {
            ++at;
        }
        if (at >= actual.size() || actual.at(at).text != word.text) {
            continue;
        }
        const Word& found = actual.at(at);
        other = at + 1;
        ++compared;
        const QString& wanted = ofParagraphs ? word.paragraphFormat : word.formats;
        const QString& has = ofParagraphs ? found.paragraphFormat : found.formats;
        if (wanted != has) {
            return u"\"%1\": expected %2, read %3"_qs.arg(word.text, wanted, has);
        }
    }
    return {};
}

const Departures& characterDepartures() {
    static const Departures List = {
        {"libreoffice__fdo74599.rtf",
         "the other reader knows a style named \"heading 3\" of its own, of 14 points; the file's "
         "is empty (\"This is gray\")"},
        {"pyth__sample.rtf",
         "the other reader gives links its own colour 000080; the file's is 0000ff (\"Allan\")"},
        {"rtfde__translated_by.rtf",
         "the other reader takes \\fs16 behind \\rtlch for a size that does not count here; it is "
         "the size of this very text"},
    };
    return List;
}

const Departures& paragraphDepartures() {
    static const Departures List = {
        {"libreoffice__tdf104937.rtf",
         "a row is one line here, with the offset of its first cell; the other reader has a "
         "paragraph for each cell (\"Stunden\")"},
        {"pandoc__list_simple.rtf",
         "the other reader moves \\li720\\fi-720 into its list and tells no offset (\"one\")"},
        {"rtf2latex2e__RtfInterpreterTest_10.rtf",
         "the same for a continued list paragraph (\"lirum\")"},
        {"rtfpipe__lists_with_breaks.rtf",
         "the other reader takes the first cell's offset from the list's definition; the paragraph "
         "itself has none (\"cell one\")"},
    };
    return List;
}

void compareFormats(const Departures& departures, bool ofParagraphs) {
    const QDir files(corpus().filePath(u"rtf"_qs));
    qsizetype compared = 0;
    int fileCount = 0;
    for (const QString& name : files.entryList({u"*.rtf.lo.json"_qs})) {
        const QString file = name.chopped(8);
        const QJsonArray expected = QJsonDocument::fromJson(bytesOf(files.filePath(name))).array();
        const RtfReadResult result = readRtf(bytesOf(files.filePath(file)));
        expectAgreement(departures, file,
                        firstDifference(wordsOf(looksOf(expected)),
                                        wordsOf(looksOf(result.fragment)), ofParagraphs, compared));
        ++fileCount;
    }
    EXPECT_GE(fileCount, 80);
    EXPECT_GE(compared, 8'000);
}

TEST_F(RtfCorpus, TheFormatsOfCharactersAgree) {
    compareFormats(characterDepartures(), false);
}

TEST_F(RtfCorpus, TheFormatsOfParagraphsAgree) {
    compareFormats(paragraphDepartures(), true);
}

} // namespace
} // namespace velmora
