// The reader against files of many writers, with the text and the formats that another reader or
// the file's own project expects. The files are not part of the project: they lie in the folder
// shared/corpus beside it, where there is one.

#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "support/fragment_description.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <map>
#include <string>

namespace velmora {
namespace {

QDir corpus() {
    const QString root = qEnvironmentVariable("VELMORA_SOURCE_DIR", QStringLiteral("."));
    return QDir(root + QStringLiteral("/../shared/corpus"));
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class RtfCorpus : public ::testing::Test {
protected:
    void SetUp() override {
        if (!corpus().exists()) {
            GTEST_SKIP() << "no corpus beside the project";
        }
    }
};

/// A file that is read otherwise than its expectation says, and why that is right.
using Departures = std::map<std::string, std::string>;

/// Checks one file for agreement against the list of departures, in both directions.
void expectAgreement(const Departures& departures, const QString& file, const QString& difference) {
    const auto departure = departures.find(file.toStdString());
    if (departure == departures.end()) {
        EXPECT_TRUE(difference.isEmpty()) << file.toStdString() << "\n" << difference.toStdString();
    } else {
        EXPECT_FALSE(difference.isEmpty())
            << file.toStdString() << " agrees now; the list still says: " << departure->second;
    }
}

// --- words ------------------------------------------------------------------------------------

/// What two readers may spell differently: kinds of blanks and hyphens, marks without a width, the
/// bar between cells, and whether a character is composed.
QString folded(QString text) {
    static constexpr char16_t Blanks[] = {0x00A0, 0x2002, 0x2003, 0x2005, 0x2009, 0x202F, u'|'};
    static constexpr char16_t LineEnds[] = {u'\r', 0x0B, 0x0C, 0x07, 0x2028, 0x2029};
    static constexpr char16_t Hyphens[] = {0x2010, 0x2011};
    static constexpr char16_t Nothing[] = {0x00AD, 0x200B, 0x200C, 0x200D,
                                           0x200E, 0x200F, 0x2060, 0xFEFF};
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const auto replaceAll = [&text](const auto& units, const QString& by) {
        for (const char16_t unit : units) {
            text.replace(QChar(unit), by);
        }
    };
    replaceAll(Blanks, QStringLiteral(" "));
    replaceAll(LineEnds, QStringLiteral("\n"));
    replaceAll(Hyphens, QStringLiteral("-"));
    replaceAll(Nothing, QString());
    return text.normalized(QString::NormalizationForm_C);
}

/// Length of a list's label at a line's start: readers differ in whether they give it.
qsizetype labelLength(const QString& line) {
    static const QRegularExpression label(QStringLiteral(
        "^[ \\t]*(?:[\u2022\u00b7\u25aa\u25cf\u25cb\u25e6\u2023\u2043\u2219\u2013\uf0b7\uf0a7\uf0d8"
        "\uf076\uf02d\uf0a8\uf0fc*o-]|\\(?(?:\\d+(?:\\.\\d+)*|[A-Za-z]|[ivxlcIVXLC]+)[.)])[ "
        "\\t]+"));
    return label.match(line).capturedLength();
}

QStringList linesOf(const QString& text) {
    QStringList lines = folded(text).split(u'\n');
    for (QString& line : lines) {
        line.remove(0, labelLength(line));
        while (!line.isEmpty() && line.back().isSpace()) {
            line.chop(1);
        }
    }
    while (!lines.isEmpty() && lines.back().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

QStringList wordsOf(const QString& text) {
    static const QRegularExpression blanks(QStringLiteral("\\s+"),
                                           QRegularExpression::UseUnicodePropertiesOption);
    return linesOf(text).join(u'\n').split(blanks, Qt::SkipEmptyParts);
}

QString plainText(const RichTextFragment& fragment) {
    QStringList lines;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        lines.append(paragraph.text);
    }
    return lines.join(u'\n');
}

/// The first place where two lists differ; empty where they are equal.
QString firstDifference(const QStringList& expected, const QStringList& actual) {
    for (qsizetype at = 0; at < std::max(expected.size(), actual.size()); ++at) {
        if (expected.value(at) != actual.value(at) || at >= expected.size() ||
            at >= actual.size()) {
            return QStringLiteral("at %1: expected \"%2\", read \"%3\"")
                .arg(QString::number(at), expected.value(at), actual.value(at));
        }
    }
    return {};
}

const Departures& textDepartures() {
    static const Departures List = {
        {"mac-apps__adium-Credits.rtf",
         "the other reader turns a blank before a blank into U+2006, so it does not see its own "
         "bullets as labels (\"\\u2006\u2022\\u2006 Growl, a notification framework\")"},
        {"rtfpipe__lists_with_breaks.rtf",
         "a table's row is one line here, so the label of its second cell stands inside the line "
         "(\"6. cell one 7. cell two\")"},
        {"rtfpipe__symbol.rtf",
         "signs of the Symbol font are read as what they are in Unicode, not as the private "
         "characters that only that font can show (\"\u0391:A:GREEK CAPITAL LETTER ALPHA:0391\")"},
        {"rtfpipe__zapf_dingbats.rtf",
         "the same for the Dingbats font (\"\u2721:A:STAR OF DAVID:2721\")"},
    };
    return List;
}

TEST_F(RtfCorpus, TheTextAgrees) {
    const QString manifest = QString::fromUtf8(bytesOf(corpus().filePath(u"rtf/MANIFEST.tsv"_qs)));
    int compared = 0;
    for (const QString& row : manifest.split(u'\n').mid(1)) {
        const QString file = row.section(u'\t', 0, 0);
        if (file.isEmpty()) {
            continue;
        }
        const QString path = corpus().filePath(u"rtf/"_qs + file);
        const QString expected = QString::fromUtf8(bytesOf(path + u".txt"_qs));
        const RtfReadResult result = readRtf(bytesOf(path));
        ASSERT_TRUE(result.outcome) << file.toStdString();
        EXPECT_EQ(test::faultOf(result.fragment).toStdString(), "") << file.toStdString();
        const QString text = plainText(result.fragment);
        const bool byLines = row.section(u'\t', 3, 3) == u"lines"_qs;
        expectAgreement(textDepartures(), file,
                        byLines ? firstDifference(linesOf(expected), linesOf(text))
                                : firstDifference(wordsOf(expected), wordsOf(text)));
        const QByteArray written = writeRtf(result.fragment);
        EXPECT_EQ(writeRtf(readRtf(written).fragment), written) << file.toStdString();
        ++compared;
    }
    EXPECT_GE(compared, 80);
}

void expectAssertions(const QString& file, const QJsonObject& expected,
                      const RichTextFragment& fragment) {
    const QString text = plainText(fragment);
    for (const QJsonValueConstRef part : expected.value(u"contains"_qs).toArray()) {
        EXPECT_TRUE(text.contains(part.toString()))
            << file.toStdString() << ": " << part.toString().toStdString();
    }
    for (const QJsonValueConstRef part : expected.value(u"not_contains"_qs).toArray()) {
        EXPECT_FALSE(text.contains(part.toString())) << file.toStdString();
    }
    QStringList lines;
    for (const QJsonValueConstRef line : expected.value(u"lines"_qs).toArray()) {
        lines.append(line.toString());
    }
    if (!lines.isEmpty()) {
        EXPECT_EQ(firstDifference(lines, linesOf(text)), QString()) << file.toStdString();
    }
    const QJsonArray paragraphs = expected.value(u"paras"_qs).toArray();
    for (qsizetype at = 0; at < paragraphs.size(); ++at) {
        const QJsonObject paragraph = paragraphs.at(at).toObject();
        const ParagraphFormat& format = fragment.paragraphs.at(static_cast<std::size_t>(at)).format;
        EXPECT_EQ(format.firstLineOffsetTwips, paragraph.value(u"fi_twips"_qs).toInt());
        EXPECT_EQ(format.leftOffsetTwips, paragraph.value(u"li_twips"_qs).toInt());
        EXPECT_EQ(format.rightToLeft, paragraph.value(u"rtl"_qs).toBool());
        EXPECT_EQ(format.alignment == Alignment::Right,
                  paragraph.value(u"align"_qs).toString() == u"right"_qs);
    }
}

TEST_F(RtfCorpus, WhatTheFilesOwnTestsAskForHolds) {
    int checked = 0;
    for (const QString& folder : {u"rtf"_qs, u"bad"_qs}) {
        const QDir files(corpus().filePath(folder));
        for (const QString& name : files.entryList({u"*.rtf.expect.json"_qs})) {
            const QString file = name.chopped(12);
            const QJsonObject expected =
                QJsonDocument::fromJson(bytesOf(files.filePath(name))).object();
            ASSERT_FALSE(expected.isEmpty()) << name.toStdString();
            expectAssertions(file, expected, readRtf(bytesOf(files.filePath(file))).fragment);
            ++checked;
        }
    }
    EXPECT_GE(checked, 15);
}

// --- formats ------------------------------------------------------------------------------------

/// How one character of the text looks, as far as both readers tell it. Fonts are not told.
struct Look final {
    QChar unit;
    QString format;
};

/// A paragraph's characters, and its own format.
struct LookedAt final {
    QList<Look> looks;
    QString paragraphFormat;
};

struct Word final {
    QString text;
    QString formats;
    QString paragraphFormat;
};

QString lookOf(bool bold, bool italic, bool underline, bool strike, double points, Rgb24 color,
               Rgb24 back) {
    return QStringLiteral("%1%2%3%4 %5 %6/%7")
        .arg(bold ? u"b"_qs : QString(), italic ? u"i"_qs : QString(),
             underline ? u"u"_qs : QString(), strike ? u"s"_qs : QString(), QString::number(points),
             QString::number(color, 16), QString::number(back, 16));
}

/// Twips are compared to the nearest 10: the other reader tells hundredths of a millimetre,
/// rounded.
QString paragraphLook(const QString& alignment, bool rtl, double left, double first) {
    return QStringLiteral("%1%2 %3 %4")
        .arg(alignment, rtl ? u" rtl"_qs : QString(), QString::number(qRound(left / 10)),
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
            const QString look = lookOf(
                run.contains(u"b"_qs), run.contains(u"i"_qs), run.contains(u"u"_qs),
                run.contains(u"s"_qs) || run.contains(u"strike"_qs), run.value(u"sz"_qs).toDouble(),
                colorOf(run.value(u"fg"_qs).toString()), colorOf(run.value(u"bg"_qs).toString()));
            for (const QChar unit : folded(run.value(u"t"_qs).toString())) {
                looked.looks.append({unit, look});
            }
        }
    }
    return result;
}

QList<LookedAt> looksOf(const RichTextFragment& fragment) {
    static const QString Alignments[] = {u"left"_qs, u"right"_qs, u"center"_qs};
    QList<LookedAt> result;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        LookedAt& looked = result.emplace_back();
        looked.paragraphFormat = paragraphLook(
            Alignments[static_cast<int>(paragraph.format.alignment)], paragraph.format.rightToLeft,
            paragraph.format.leftOffsetTwips, paragraph.format.firstLineOffsetTwips);
        qsizetype at = 0;
        for (const TextRun& run : paragraph.runs) {
            const CharacterFormat& format = fragment.formats[static_cast<std::size_t>(run.format)];
            const QString look =
                lookOf(format.bold, format.italic, format.underline, format.strikeThrough,
                       format.halfPoints / 2.0, format.color, format.backColor);
            for (const QChar unit : folded(paragraph.text.mid(at, run.length))) {
                looked.looks.append({unit, look});
            }
            at += run.length;
        }
    }
    return result;
}

QList<Word> wordsOf(const QList<LookedAt>& paragraphs) {
    QList<Word> words;
    for (const LookedAt& paragraph : paragraphs) {
        QString text;
        for (const Look& look : paragraph.looks) {
            text += look.unit;
        }
        qsizetype lineStart = 0;
        for (const QString& line : text.split(u'\n')) {
            bool inWord = false;
            for (qsizetype at = labelLength(line); at < line.size(); ++at) {
                const Look& look = paragraph.looks.at(lineStart + at);
                if (look.unit.isSpace()) {
                    inWord = false;
                    continue;
                }
                if (!inWord) {
                    words.append({{}, {}, paragraph.paragraphFormat});
                }
                inWord = true;
                words.back().text += look.unit;
                if (!words.back().formats.endsWith(look.format)) {
                    words.back().formats += u'|' + look.format;
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
            return QStringLiteral("\"%1\": expected %2, read %3").arg(word.text, wanted, has);
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

// --- hostile files ------------------------------------------------------------------------------

TEST_F(RtfCorpus, BadFilesAreReadSafelyAndShowNoControlWords) {
    const QDir files(corpus().filePath(u"bad"_qs));
    static const QRegularExpression controlWord(QStringLiteral(
        "\\\\(rtf|par|pard|plain|fonttbl|colortbl|stylesheet|fs\\d|cf\\d|pict|field|cell|row)"));
    int count = 0;
    for (const QString& name : files.entryList(QDir::Files)) {
        const QByteArray bytes = bytesOf(files.filePath(name));
        if (name.endsWith(u".json"_qs) || name.endsWith(u".txt"_qs)) {
            continue;
        }
        QElapsedTimer timer;
        timer.start();
        const RtfReadResult result = readRtf(bytes);
        EXPECT_LT(timer.elapsed(), 5'000) << name.toStdString();
        EXPECT_EQ(test::faultOf(result.fragment).toStdString(), "") << name.toStdString();
        EXPECT_EQ(result.fragment.paragraphs.empty(), !result.outcome) << name.toStdString();
        const QString text = plainText(result.fragment);
        EXPECT_FALSE(text.contains(controlWord)) << name.toStdString() << text.toStdString();
        EXPECT_LE(text.size(), bytes.size()) << name.toStdString();
        ++count;
    }
    EXPECT_GE(count, 25);
}

} // namespace
} // namespace velmora
