#include "rtf_corpus.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rtf_reader.h"
#include "support/flat_text.h"
#include "support/fragment_description.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velmora {
namespace {

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

/// The first place where two lists differ; empty where they are equal.
QString firstDifference(const QStringList& expected, const QStringList& actual) {
    for (qsizetype at = 0; at < std::max(expected.size(), actual.size()); ++at) {
        if (expected.value(at) != actual.value(at) || at >= expected.size() ||
            at >= actual.size()) {
            return u"at %1: expected \"%2\", read \"%3\""_qs.arg(
                QString::number(at), expected.value(at), actual.value(at));
        }
    }
    return {};
}

const Departures& textDepartures() {
    static const Departures List = {
        {"mac-apps__adium-Credits.rtf",
         "the other reader turns a blank before a blank into U+2006, so it does not see its own "
         "bullets as labels (\"\\u2006\u2022\\u2006 Growl, a notification framework\")"},
        {"pandoc__unicode.rtf",
         "a private character in a font for text is the sign that Symbol has there, a bullet"},
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
    for (const QString& row : manifest.split(u'\n', Qt::SkipEmptyParts).mid(1)) {
        const QString file = row.section(u'\t', 0, 0);
        const QByteArray bytes = bytesOf(corpus().filePath(u"rtf/"_qs + file));
        const RtfReadResult result = readRtf(bytes);
        ASSERT_TRUE(result.outcome) << file.toStdString();
        EXPECT_EQ(faultOfReading(bytes), QString()) << file.toStdString();
        QStringList expected =
            linesOf(QString::fromUtf8(bytesOf(corpus().filePath(u"rtf/%1.txt"_qs.arg(file)))));
        QStringList actual = linesOf(plainText(result.fragment));
        if (row.section(u'\t', 3, 3) != u"lines"_qs) {
            expected = wordsOf(expected.join(u'\n'));
            actual = wordsOf(actual.join(u'\n'));
        }
        expectAgreement(textDepartures(), file, firstDifference(expected, actual));
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
        EXPECT_EQ(isRightToLeft(format.direction,
                                fragment.paragraphs.at(static_cast<std::size_t>(at)).text),
                  paragraph.value(u"rtl"_qs).toBool());
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

TEST_F(RtfCorpus, BadFilesAreReadSafelyAndShowNoControlWords) {
    const QDir files(corpus().filePath(u"bad"_qs));
    static const QRegularExpression controlWord(
        u"\\\\(rtf|par|pard|plain|fonttbl|colortbl|stylesheet|fs\\d|cf\\d|pict|field|cell|row)"_qs);
    int count = 0;
    for (const QString& name : files.entryList(QDir::Files)) {
        if (name.endsWith(u".json"_qs) || name.endsWith(u".txt"_qs)) {
            continue;
        }
        const QByteArray bytes = bytesOf(files.filePath(name));
        QElapsedTimer timer;
        timer.start();
        const RtfReadResult result = readRtf(bytes);
        EXPECT_LT(timer.elapsed(), 5'000) << name.toStdString();
        EXPECT_EQ(faultOfReading(bytes), QString()) << name.toStdString();
        const QString text = plainText(result.fragment);
        EXPECT_FALSE(text.contains(controlWord)) << name.toStdString() << text.toStdString();
        ++count;
    }
    EXPECT_GE(count, 25);
}

} // namespace
} // namespace velmora
