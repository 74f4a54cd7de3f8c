#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/long_paragraphs.h"
#include "platform/rich_text/rich_text_box.h"
#include "support/fragment_description.h"
#include "support/random_text.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

void expectSame(const RichTextBox& one, const RichTextBox& other) {
    EXPECT_EQ(describeAll(one.fragment()), describeAll(other.fragment()));
    EXPECT_EQ(one.caretPosition(), other.caretPosition());
    ASSERT_EQ(one.lineCount(), other.lineCount());
    const auto lines = one.lineMetrics(one.lineCount());
    const auto otherLines = other.lineMetrics(one.lineCount());
    for (size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].index, otherLines[i].index);
        EXPECT_EQ(lines[i].y, otherLines[i].y);
    }
}

TEST(LongTexts, ComeInUnderWatchAsTheyDoAtOnce) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        RandomText random(seed);
        const RichTextFragment old = random.fragment(0, 6, 20);
        RichTextFragment text = random.fragment(1, 12, 30);
        RichTextBox atOnce;
        RichTextBox staging;
        RichTextBox box;
        const int from = random.below(40);
        const int to = random.below(40);
        for (RichTextBox* one : {&atOnce, &staging}) {
            one->setFragment(old);
            one->select(from, to);
        }
        atOnce.replaceSelection(text);
        const double end = random.once(3) ? random.below(100) / 100.0 : 2;
        double last = 0;
        const bool whole = staging.replaceSelectionWatched(std::move(text), [&](double share) {
            EXPECT_GE(share, last);
            return (last = share) < end;
        });
        EXPECT_EQ(whole, last < end);
        if (!whole) {
            continue;
        }
        box.setText(u"what was there"_qs);
        box.setZoom(3);
        int changes = 0;
        QObject::connect(&box, &RichTextBox::Change, &box, [&] { ++changes; });
        box.exchangeContents(staging);
        EXPECT_EQ(changes, 1);
        EXPECT_EQ(box.zoom(), 3);
        EXPECT_EQ(staging.Text(), u"what was there"_qs);
        atOnce.setZoom(3);
        expectSame(box, atOnce);
        for (RichTextBox* one : {&box, &atOnce}) {
            one->setSelText(u"typed"_qs);
        }
        EXPECT_EQ(changes, 2);
        expectSame(box, atOnce);
    }
}

/// A paragraph whose runs change every so many units.
RichTextFragment oneParagraph(const QString& text, int runLength) {
    RichTextFragment fragment = fragmentOfText(text, {u"Arial"_qs, 52});
    fragment.formats.push_back({u"Arial"_qs, 60});
    Paragraph& paragraph = fragment.paragraphs.front();
    paragraph.runs.clear();
    for (int at = 0; at < text.size(); at += runLength) {
        const auto rest = static_cast<int>(text.size()) - at;
        paragraph.runs.push_back({std::min(runLength, rest), at / runLength % 2});
    }
    return fragment;
}

TEST(LongTexts, PiecesHaveTheDirectionOfTheWhole) {
    RichTextFragment text =
        oneParagraph(u"\u05D0 "_qs + u"some words of a line "_qs.repeated(6'000), 999'999);
    long_paragraphs::breakUp(text);
    ASSERT_GT(text.paragraphs.size(), 2u);
    for (const Paragraph& piece : text.paragraphs) {
        EXPECT_EQ(piece.format.direction, Direction::RightToLeft);
    }
}

TEST(LongTexts, AnOverlongParagraphIsBrokenAndNothingElseChanges) {
    struct Case final {
        QString unit;
        int times;
        int runLength;
        /// What every piece but the last ends with; a line end inside of the paragraph is gone.
        QString end;
    };
    const Case cases[] = {
        {u"some words of a line "_qs, 4'000, 999'999, QString()}, // as long as the longest
        {u"some words of a line "_qs, 12'000, 999'999, u" "_qs},
        {u"a line of a song\v"_qs, 12'000, 7, u"song"_qs},
        {u"\u4e00\u3002"_qs, 70'000, 999'999, u"\u3002"_qs},
        {u"a"_qs, 150'000, 999'999, u"a"_qs},
        {u"\U0001F600"_qs, 60'000, 999'999, u"\U0001F600"_qs},
        {u"x\u0301\u0302"_qs, 50'000, 999'999, u"\u0302"_qs},
        {u"\u0301"_qs, 5'000, 999'999, u"\u0301"_qs},
        {u"ab "_qs, 5'000, 1, QString()},
    };
    for (const Case& it : cases) {
        const RichTextFragment whole = oneParagraph(it.unit.repeated(it.times), it.runLength);
        RichTextFragment broken = whole;
        const bool tooLong = long_paragraphs::longestOf(whole) > 0;
        long_paragraphs::breakUp(broken);
        EXPECT_EQ(broken.paragraphs.size() > 1, tooLong);
        EXPECT_EQ(tooLong, &it != cases);
        EXPECT_EQ(faultOf(broken), QString());
        EXPECT_EQ(long_paragraphs::longestOf(broken), 0);
        QString text = textOfFragment(broken);
        const bool atLineEnds = it.unit.endsWith(u'\v');
        EXPECT_EQ(text.replace(u"\r\n"_qs, atLineEnds ? u"\v"_qs : QString()),
                  textOfFragment(whole));
        for (const Paragraph& piece : broken.paragraphs) {
            EXPECT_TRUE(!tooLong || piece.text.size() <= long_paragraphs::UnitsOfAPiece);
            EXPECT_TRUE(&piece == &broken.paragraphs.back() || piece.text.endsWith(it.end));
        }
        const auto formats = [](const RichTextFragment& of) {
            std::vector<int> result;
            for (const Paragraph& paragraph : of.paragraphs) {
                int at = 0;
                for (const TextRun& run : paragraph.runs) {
                    for (const int end = at + run.length; at < end; ++at) {
                        if (paragraph.text[at] != QChar::LineSeparator) {
                            result.push_back(run.format);
                        }
                    }
                }
            }
            return result;
        };
        EXPECT_EQ(formats(broken), formats(whole));
    }
}

} // namespace
} // namespace velmora
