#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "support/fragment_description.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <random>

namespace velmora {
namespace {

using test::faultOf;
using test::randomFragment;

/// A document with everything that a word processor puts around a text.
const QByteArray Rich =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\upr{\\fonttbl{\\f0 A;}}{\\*\\ud{\\fonttbl{\\f0\\fcharset0 "
    "Arial;}{\\f1\\fcharset128 Gothic;}{\\f2\\fcharset2 Symbol;}}}}{\\colortbl;\\red255\\green0"
    "\\blue0;}{\\stylesheet{\\s0 Normal;}{\\s1\\b\\sbasedon0 Head;}{\\*\\cs9\\i Em;}}{\\info{"
    "\\title No}}{\\*\\generator X;}\\pard\\s1 First {\\cs9 line} \\u8211\\'96 end\\par\n"
    "\\pard\\plain\\fs52\\cf1 Second\\line soft{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt "
    "link}}{\\pict\\pngblip 0102\\bin4 }{}\\}\\par{\\listtext\\f2\\'b7\\tab}item\\par\\trowd one"
    "\\cell two\\cell\\row\\pard {\\f1\\'82\\'b1\\'83e} \\u-10179?\\u-8251? {\\v hidden}"
    "{\\footnote note}last\\par}";

QByteArray mutated(QByteArray bytes, std::mt19937& random) {
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() %
                                      static_cast<unsigned>(std::max<qsizetype>(limit, 1)));
    };
    static const QByteArray Pieces[] = {"{",
                                        "}",
                                        "\\",
                                        "\\'8",
                                        "\\bin7 ",
                                        "\\u-1?",
                                        "\\*",
                                        "\\ud ",
                                        "\\row ",
                                        "\\cell ",
                                        "\\par",
                                        "{\\fonttbl",
                                        "\\v ",
                                        "{\\upr",
                                        "{\\stylesheet",
                                        "\\uc9 ",
                                        "{\\field{\\*\\fldinst "};
    for (qsizetype count = 1 + below(4); count > 0 && !bytes.isEmpty(); --count) {
        const qsizetype at = below(bytes.size());
        switch (below(6)) {
        case 0:
            bytes.truncate(at);
            break;
        case 1:
            bytes[at] = static_cast<char>(below(256));
            break;
        case 2: {
            const qsizetype brace = bytes.indexOf(below(2) == 0 ? '{' : '}', at);
            bytes.remove(std::max<qsizetype>(brace, 0), brace >= 0 ? 1 : 0);
            break;
        }
        case 3:
            bytes.insert(at, Pieces[below(static_cast<qsizetype>(std::size(Pieces)))]);
            break;
        case 4:
            bytes.remove(at, below(20));
            break;
        default:
            bytes.insert(at, bytes.mid(below(bytes.size()), below(60)));
            break;
        }
    }
    return bytes;
}

TEST(RtfMutation, DamagedDocumentsAreReadSafelyAndWriteTheSame) {
    std::mt19937 random(20'240);
    QElapsedTimer timer;
    timer.start();
    int readable = 0;
    for (unsigned round = 0; round < 6'000; ++round) {
        const QByteArray valid = round % 3 == 0 ? writeRtf(randomFragment(round)) : Rich;
        const QByteArray rtf = mutated(valid, random);
        const RtfReadResult result = readRtf(rtf);
        if (!result.outcome) {
            continue;
        }
        ++readable;
        ASSERT_EQ(faultOf(result.fragment).toStdString(), "") << rtf.constData();
        qsizetype units = 0;
        for (const Paragraph& paragraph : result.fragment.paragraphs) {
            units += paragraph.text.size() + 1;
        }
        ASSERT_LE(units, rtf.size() + 1) << rtf.constData();
        const QByteArray written = writeRtf(result.fragment);
        ASSERT_EQ(writeRtf(readRtf(written).fragment), written) << rtf.constData();
    }
    EXPECT_GT(readable, 3'000);
    EXPECT_LT(timer.elapsed(), 60'000);
}

QString plainText(const RichTextFragment& fragment) {
    QStringList lines;
    for (const Paragraph& paragraph : fragment.paragraphs) {
        lines.append(paragraph.text);
    }
    return lines.join(u'\n');
}

TEST(RtfMutation, ACutOffDocumentGivesTheTextUpToTheCut) {
    const QString whole = plainText(readRtf(Rich).fragment);
    ASSERT_TRUE(whole.startsWith(QStringLiteral("First line")));
    for (qsizetype cut = 6; cut < Rich.size(); ++cut) {
        const RtfReadResult result = readRtf(Rich.first(cut));
        ASSERT_TRUE(result.outcome) << cut;
        // The last character may be half of what the file would have given: two units at most.
        const QString text = plainText(result.fragment);
        EXPECT_TRUE(whole.startsWith(text.chopped(std::min<qsizetype>(text.size(), 2))))
            << Rich.first(cut).constData() << "\n"
            << text.toStdString();
    }
}

TEST(RtfMutation, OneLostBraceOfTheHeaderDoesNotLoseTheScript) {
    const qsizetype tables = Rich.indexOf("{\\colortbl");
    const qsizetype end = Rich.indexOf("\\pard\\s1");
    for (qsizetype at = tables; at < end; ++at) {
        if (Rich.at(at) != '{' && Rich.at(at) != '}') {
            continue;
        }
        QByteArray damaged = Rich;
        const QString text = plainText(readRtf(damaged.remove(at, 1)).fragment);
        EXPECT_TRUE(text.contains(QStringLiteral("Second"))) << damaged.constData();
        EXPECT_TRUE(text.contains(QStringLiteral("last"))) << damaged.constData();
    }
}

} // namespace
} // namespace velmora
