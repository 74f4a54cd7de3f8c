#include "platform/rich_text/rtf_writer.h"

#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rtf_reader.h"
#include "support/fragment_description.h"
#include "support/random_text.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(RtfWriter, WhatIsWrittenIsReadBackWhole) {
    RandomText random(1, partsForFiles());
    for (int round = 1; round <= 400; ++round) {
        RichTextFragment fragment = random.fragment(1, 8, 9);
        for (Paragraph& paragraph : fragment.paragraphs) {
            Direction& direction = paragraph.format.direction;
            // What the text tells by itself is not kept.
            direction = isRightToLeft(direction, paragraph.text) == paragraph.text.isRightToLeft()
                            ? Direction::FromText
                            : direction;
        }
        ASSERT_EQ(faultOf(fragment).toStdString(), "");
        const QByteArray first = writeRtf(fragment);
        ASSERT_TRUE(std::ranges::all_of(first, [](char byte) {
            return (byte >= 0x20 && byte < 0x7F) || byte == '\r' || byte == '\n';
        }));
        const RtfReadResult read = readRtf(first);
        ASSERT_TRUE(read.outcome) << "round " << round;
        ASSERT_EQ(faultOf(read.fragment).toStdString(), "") << "round " << round;
        ASSERT_EQ(describeAll(read.fragment).toStdString(), describeAll(fragment).toStdString())
            << "round " << round;
        ASSERT_EQ(writeRtf(read.fragment), first) << "round " << round;
    }
}

TEST(RtfWriter, ARunAsLongAsABookIsWrittenWholeAndWithoutRoomToSpare) {
    const qsizetype length = 1'000'000;
    const auto expectWhole = [](const QString& text, qsizetype room) {
        const RichTextFragment fragment{{{}},
                                        {{text, {{static_cast<int>(text.size()), 0}}, 0, {}}}};
        const QByteArray rtf = writeRtf(fragment);
        EXPECT_LT(rtf.capacity(), room);
        const RtfReadResult read = readRtf(rtf);
        ASSERT_EQ(read.fragment.paragraphs.size(), 1u);
        EXPECT_TRUE(read.fragment.paragraphs.front().text == text);
    };
    for (const QChar special : {QChar(u'a'), QChar(u'{'), QChar(u'\u20ac'), QChar(0xFFFD)}) {
        expectWhole(QString(length, u'a') + QString(9'999, special), 3 * length);
    }
    // The longest form of all, where the room that was made at first is just not enough for it.
    for (int rest = 26'000; rest < 34'000; rest += 250) {
        expectWhole(QString(7 * 4'096, u'a') + QString(4'096, u'\u8000') + QString(rest, u'a'),
                    length);
    }
}

TEST(RtfWriter, FormatsThatLookTheSameAreOne) {
    const CharacterFormat format{u"Arial"_qs, 52};
    const RichTextFragment fragment{
        {format, format},
        {{u"ab\u2028c"_qs, {{1, 0}, {3, 1}}, 1, {}}, {{}, {}, 0, {Alignment::Centre}}}};
    EXPECT_EQ(writeRtf(fragment).toStdString(),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil Arial;}}\r\n"
              "{\\colortbl ;}\r\n\\viewkind4\r\n"
              "\\pard\\plain\\f0\\fs52 ab\\line c\\par\r\n\\pard\\qc\\plain\\f0\\fs52 }\r\n");
}

TEST(RtfWriter, ACharacterWhoseHalvesHaveDifferentFormatsIsKept) {
    CharacterFormat bold;
    bold.bold = true;
    const QString text = u"a\U0001F3C5b"_qs;
    const RichTextFragment fragment{{CharacterFormat(), bold}, {{text, {{2, 0}, {2, 1}}, 1, {}}}};
    const RtfReadResult read = readRtf(writeRtf(fragment));
    EXPECT_EQ(read.fragment.paragraphs.at(0).text, text);
}

TEST(RtfWriter, NamesTheDirectionThatTheTextHas) {
    const QString hebrew = u"1. \u05E9\u05DC\u05D5\u05DD"_qs;
    const struct {
        QString text;
        Direction direction;
        const char* words;
    } rows[] = {
        {u"abc"_qs, Direction::FromText, "\\pard\\plain"},
        {hebrew, Direction::FromText, "\\pard\\rtlpar\\ql\\plain"},
        {hebrew, Direction::LeftToRight, "\\pard\\ltrpar\\plain"},
        {u"abc"_qs, Direction::RightToLeft, "\\pard\\rtlpar\\ql\\plain"},
        {u"123"_qs, Direction::FromText, "\\pard\\plain"},
    };
    for (const auto& row : rows) {
        const int length = static_cast<int>(row.text.size());
        const QByteArray rtf =
            writeRtf({{{}}, {{row.text, {{length, 0}}, 0, {Alignment::Left, row.direction}}}});
        EXPECT_TRUE(rtf.contains(row.words)) << rtf.constData();
        const RichTextFragment read = readRtf(rtf).fragment;
        EXPECT_EQ(read.paragraphs.front().format.direction, row.direction)
            << "it may turn when the text does";
        EXPECT_EQ(writeRtf(read), rtf);
    }
}

TEST(RtfWriter, WhatAFileCannotHoldIsLeftOutOnce) {
    const QString text = u"a\u0001\n\uFFFC\uFFFF"_qs + QChar(0xD800) + u'b';
    const RichTextFragment fragment{
        {{u"A;B\n}"_qs, 100'000, 0xFF000001}},
        {{text, {{static_cast<int>(text.size()), 0}}, 0, {Alignment::Left, {}, 1'000'000}}}};
    const RtfReadResult read = readRtf(writeRtf(fragment));
    ASSERT_TRUE(read.outcome);
    EXPECT_EQ(faultOf(read.fragment).toStdString(), "");
    EXPECT_EQ(describeAll(read.fragment),
              u"[li31680]{2000 c=010000 'AB }':a\ufffdb}<2000 c=010000 'AB }'>"_qs);
    const QByteArray second = writeRtf(read.fragment);
    EXPECT_EQ(writeRtf(readRtf(second).fragment), second);

    const RtfReadResult empty = readRtf(writeRtf({}));
    ASSERT_TRUE(empty.outcome);
    EXPECT_EQ(describeAll(empty.fragment), u"<>"_qs);
}

} // namespace
} // namespace velmora
