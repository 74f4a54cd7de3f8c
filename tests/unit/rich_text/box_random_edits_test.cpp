#include "naive_box.h"

#include "platform/rich_text/rich_text_box.h"
#include "support/random_text.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// Walks a box and its naive model through the same random operations and compares all they tell.
class Pair final {
public:
    explicit Pair(unsigned seed) : random(seed) {
        box.setWrapWidth(120);
        model.lastEnd = box.defaultFormat();
        QObject::connect(&box, &RichTextBox::Change, &box, [this] { ++changes; });
        QObject::connect(&box, &RichTextBox::SelChange, &box, [this] { ++movements; });
    }

    void step() {
        const NaiveBox before = model;
        changes = 0;
        movements = 0;
        operate();
        const bool contentsDiffer = before.characters != model.characters ||
                                    before.paragraphs != model.paragraphs ||
                                    before.lastEnd != model.lastEnd;
        const bool moved = before.anchor != model.anchor || before.caret != model.caret;
        EXPECT_GE(changes, contentsDiffer ? 1 : 0);
        EXPECT_LE(changes, contentsDiffer || mayChangeUnseen ? 1 : 0);
        if (!isTwoOperations) {
            EXPECT_EQ(movements, moved ? 1 : 0);
        }
        compare();
    }

    QString last;

private:
    int position() { return random.below(model.size() + 3) - 1; }

    void operate() {
        mayChangeUnseen = false;
        isTwoOperations = false;
        switch (random.below(12)) {
        case 0:
        case 1:
            return moveCaret();
        case 2:
        case 3:
            return select();
        case 4:
        case 5:
            return insertText();
        case 6:
            return remove();
        case 7:
            return insertFragment();
        case 8:
            return find();
        case 9:
            return setEverything();
        case 10:
            return changeParagraphs();
        default:
            return changeFormat();
        }
    }

    void moveCaret() {
        last = u"caret"_qs;
        const int place = position();
        box.setSelStart(place);
        model.select(place, place);
        if (random.once(2)) {
            constexpr int Most = std::numeric_limits<int>::max();
            const int length = random.once(9) ? Most : random.below(5) - 1;
            isTwoOperations = true;
            box.setSelLength(length);
            model.select(model.caret, model.caret + std::clamp(length, 0, model.size()));
        }
    }

    void select() {
        last = u"select"_qs;
        const int from = position();
        const int to = random.once(3) ? position() : from + random.below(9) - 4;
        box.select(from, to);
        model.select(from, to);
    }

    void insertText() {
        last = u"insert text"_qs;
        const QString text = random.textWithLineEnds(4);
        const RichTextFragment fragment =
            fragmentOfText(text, model.replacingFormat(), *model.selectedParagraphs().front());
        mayChangeUnseen = true;
        box.setSelText(text);
        model.replace(fragment);
    }

    void remove() {
        last = u"remove"_qs;
        // What is typed into the gap looks like what stood there.
        const RichTextFragment nothing =
            fragmentOfText({}, model.replacingFormat(), *model.selectedParagraphs().front());
        box.setSelText(QString());
        model.replace(nothing);
    }

    void insertFragment() {
        last = u"insert fragment"_qs;
        const RichTextFragment fragment = random.fragment(0, 3, 4);
        mayChangeUnseen = true;
        box.replaceSelection(fragment);
        model.replace(fragment);
    }

    void setEverything() {
        last = u"set everything"_qs;
        RichTextFragment fragment = random.fragment(0, 6, 8);
        if (random.once(2)) {
            // Most of what is there stays: the box may leave it alone.
            fragment = box.fragment();
            for (Paragraph& paragraph : fragment.paragraphs) {
                paragraph = random.once(4)
                                ? random.paragraph(static_cast<int>(fragment.formats.size()), 3)
                                : paragraph;
            }
            if (random.once(2)) {
                fragment.paragraphs.resize(1 + fragment.paragraphs.size() / 2);
            }
        }
        box.setFragment(fragment);
        if (fragment.paragraphs.empty()) {
            fragment = fragmentOfText({}, box.defaultFormat());
        }
        NaiveBox fresh;
        fresh.replace(fragment);
        fresh.paragraphs.front() = fragment.paragraphs.front().format;
        fresh.lastEnd = formatAt(fragment, fragment.paragraphs.back().endFormat);
        model = fresh;
        model.select(0, 0);
    }

    void find() {
        last = u"find"_qs;
        static const QString needles[] = {u"OFF"_qs,  u"\u00E9"_qs, u"a"_qs,
                                          u"\r\n"_qs, u"\t"_qs,     u"missing"_qs};
        const QString& needle = needles[random.below(std::size(needles))];
        const int start = random.below(model.size() + 1);
        box.Find(needle, start);
        model.find(needle, start);
    }

    void changeFormat() {
        last = u"format"_qs;
        const CharacterFormat format = random.format();
        switch (random.below(5)) {
        case 0:
            box.setSelColor(format.color);
            return model.changeFormat([&](CharacterFormat& f) { f.color = format.color; });
        case 1:
            box.setSelFontName(format.fontName);
            return model.changeFormat([&](CharacterFormat& f) { f.fontName = format.fontName; });
        case 2:
            box.setSelFontSize(format.halfPoints / 2.0);
            return model.changeFormat(
                [&](CharacterFormat& f) { f.halfPoints = format.halfPoints; });
        case 3:
            box.setSelBold(format.bold);
            return model.changeFormat([&](CharacterFormat& f) { f.bold = format.bold; });
        default:
            box.setSelBackColor(format.backColor);
            return model.changeFormat([&](CharacterFormat& f) { f.backColor = format.backColor; });
        }
    }

    void changeParagraphs() {
        last = u"paragraphs"_qs;
        if (random.once(3)) {
            box.clearSelOffset();
            for (ParagraphFormat* format : model.selectedParagraphs()) {
                format->leftOffsetTwips = 0;
                format->firstLineOffsetTwips = 0;
            }
            return;
        }
        const auto alignment = static_cast<Alignment>(random.below(3));
        box.setSelAlignment(alignment);
        for (ParagraphFormat* format : model.selectedParagraphs()) {
            format->alignment = alignment;
        }
    }

    template<typename Value> std::optional<Value> shared(Value CharacterFormat::*member) const {
        const std::vector<CharacterFormat> formats = model.selectedFormats();
        const bool differ = std::any_of(formats.begin(), formats.end(), [&](const auto& format) {
            return format.*member != formats.front().*member;
        });
        return differ ? std::nullopt : std::optional(formats.front().*member);
    }

    void compare() {
        ASSERT_TRUE(sameContents(box.fragment(), model.fragment()));
        if (random.once(2)) {
            EXPECT_EQ(box.Text(), model.text(0, model.size()));
        }
        EXPECT_EQ(box.textLength(), model.size());
        EXPECT_EQ(box.isEmpty(), model.size() == 0);
        EXPECT_EQ(box.SelStart(), model.begin());
        EXPECT_EQ(box.SelLength(), model.end() - model.begin());
        EXPECT_EQ(box.caretPosition(), model.caret);
        EXPECT_EQ(box.SelText(), model.text(model.begin(), model.end()));
        EXPECT_EQ(box.SelColor(), shared(&CharacterFormat::color));
        EXPECT_EQ(box.SelBackColor(), shared(&CharacterFormat::backColor));
        EXPECT_EQ(box.SelFontName(), shared(&CharacterFormat::fontName));
        EXPECT_EQ(box.SelBold(), shared(&CharacterFormat::bold));
        EXPECT_EQ(box.SelItalic(), shared(&CharacterFormat::italic));
        EXPECT_EQ(box.SelUnderline(), shared(&CharacterFormat::underline));
        EXPECT_EQ(box.SelStrikeThru(), shared(&CharacterFormat::strikeThrough));
        const std::optional<int> halves = shared(&CharacterFormat::halfPoints);
        EXPECT_EQ(box.SelFontSize(), halves ? std::optional(*halves / 2.0) : std::nullopt);
        compareParagraphs();
        compareLines();
    }

    void compareParagraphs() {
        bool sameAlignment = true;
        bool hasOffset = false;
        const std::vector<ParagraphFormat*> formats = model.selectedParagraphs();
        for (const ParagraphFormat* format : formats) {
            sameAlignment = sameAlignment && format->alignment == formats.front()->alignment;
            hasOffset =
                hasOffset || format->leftOffsetTwips != 0 || format->firstLineOffsetTwips != 0;
        }
        EXPECT_EQ(box.SelAlignment(),
                  sameAlignment ? std::optional(formats.front()->alignment) : std::nullopt);
        EXPECT_EQ(box.SelHasOffset(), hasOffset);
    }

    /// The layout after all these changes is that of the same document made anew.
    void compareLines() {
        if (!random.once(4)) {
            return;
        }
        RichTextBox fresh;
        fresh.setWrapWidth(box.wrapWidth());
        fresh.setFragment(model.fragment());
        const int count = fresh.lineCount();
        ASSERT_EQ(box.lineCount(), count);
        const std::vector<RichTextBox::LineMetrics> expected = fresh.lineMetrics(count);
        const std::vector<RichTextBox::LineMetrics> actual = box.lineMetrics(count);
        ASSERT_EQ(expected.size(), actual.size());
        for (int line = 0; line < count; ++line) {
            const auto index = static_cast<size_t>(line);
            EXPECT_EQ(actual[index].index, expected[index].index);
            EXPECT_EQ(actual[index].length, expected[index].length);
            EXPECT_EQ(actual[index].y, expected[index].y);
            EXPECT_EQ(box.lineIndex(line), actual[index].index);
            EXPECT_EQ(box.lineLength(actual[index].index), actual[index].length);
            EXPECT_EQ(box.verticalPosition(actual[index].index), actual[index].y);
            EXPECT_EQ(box.GetLineFromChar(actual[index].index), line);
            EXPECT_EQ(box.lineHeight(line), fresh.lineHeight(line));
        }
    }

    RandomText random;
    RichTextBox box;
    NaiveBox model;
    int changes = 0;
    int movements = 0;
    /// The operation may replace something by what looks the same.
    bool mayChangeUnseen = false;
    bool isTwoOperations = false;
};

TEST(BoxRandomEdits, TellTheSameAsAnArrayOfCharacters) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Pair pair(seed);
        for (int step = 0; step < 150; ++step) {
            pair.step();
            ASSERT_FALSE(::testing::Test::HasFailure())
                << "seed " << seed << ", step " << step << ": " << pair.last.toStdString();
        }
    }
}

} // namespace
} // namespace velmora
