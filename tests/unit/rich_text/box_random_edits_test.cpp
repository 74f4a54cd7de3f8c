#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box.h"
#include "support/flat_text.h"
#include "support/random_text.h"

#include <gtest/gtest.h>

#include <set>

namespace velmora {
namespace {

/// Walks a box through random operations. After each of them its contents are those from before, as
/// an array of characters, with what the operation is told to do; and it tells all else as they do.
class RandomEdits final {
public:
    explicit RandomEdits(unsigned seed) : m_random(seed) {
        m_box.setWrapWidth(120);
        QObject::connect(&m_box, &RichTextBox::Change, &m_box, [this] { ++m_changes; });
    }

    void step() {
        select();
        m_before = flatten(m_box.fragment());
        m_from = m_box.toDocument(m_box.SelStart());
        m_to = m_box.toDocument(m_box.SelStart() + m_box.SelLength());
        m_changes = 0;
        operate();
        const FlatText after = flatten(m_box.fragment());
        EXPECT_EQ(difference(after.text, m_expected.text), "");
        EXPECT_EQ(after.paragraphs, m_expected.paragraphs);
        expectFormats(after);
        EXPECT_LE(m_changes, 1);
        EXPECT_TRUE(m_changes == 1 || after == m_before);
        expectTellsItsContents();
        if (m_random.once(4)) {
            expectLaidOutAsIfNew();
        }
    }

    QString last;

private:
    void select() {
        const int length = m_box.textLength();
        const int from = m_random.below(length + 3) - 1;
        m_box.select(from,
                     m_random.once(3) ? m_random.below(length + 1) : from + m_random.below(9) - 4);
    }

    void operate() {
        m_expected = m_before;
        m_unknown.clear();
        switch (m_random.below(6)) {
        case 0:
            return insertText();
        case 1:
            return insertFragment();
        case 2:
            return setEverything();
        case 3:
            return changeFormat();
        case 4:
            return changeParagraphs();
        default:
            return find();
        }
    }

    /// It looks like what stood there first, or like what was told at the caret.
    void insertText() {
        last = u"text"_qs;
        const QString text = m_random.once(4) ? QString() : m_random.textWithLineEnds(4);
        CharacterFormat look = m_before.formats[static_cast<std::size_t>(m_from)];
        const bool known = m_from < m_to && m_before.text.at(m_from) != u'\n';
        if (!known) {
            m_box.setSelStart(m_box.SelStart());
            m_to = m_from;
            look = {*m_box.SelFontName(),  static_cast<int>(2 * *m_box.SelFontSize()),
                    *m_box.SelColor(),     *m_box.SelBackColor(),
                    *m_box.SelBold(),      *m_box.SelItalic(),
                    *m_box.SelUnderline(), *m_box.SelStrikeThru()};
        }
        const qsizetype first = m_before.text.left(m_from).count(u'\n');
        expectReplaced(fragmentOfText(text, look, m_before.paragraphs[std::size_t(first)]));
        m_box.setSelText(text);
    }

    void insertFragment() {
        last = u"fragment"_qs;
        const RichTextFragment fragment = m_random.fragment(0, 3, 4);
        expectReplaced(fragment);
        m_box.replaceSelection(fragment);
    }

    /// What comes in inside a paragraph takes on the format of that paragraph.
    void expectReplaced(const RichTextFragment& fragment) {
        FlatText middle = flatten(fragment);
        if (!fragment.paragraphs.empty()) {
            middle.text.chop(1);
            middle.formats.pop_back();
        }
        const bool inFront = m_from > 0 && m_before.text.at(m_from - 1) != u'\n';
        const bool behind = m_before.text.at(m_to) != u'\n';
        const auto first = m_before.text.left(m_from).count(u'\n');
        const auto end = m_before.text.left(m_to).count(u'\n');
        const bool isNothing = m_from == m_to && middle.text.isEmpty();
        m_expected.text.replace(m_from, m_to - m_from, middle.text);
        auto& formats = m_expected.formats;
        formats.erase(formats.begin() + m_from, formats.begin() + m_to);
        formats.insert(formats.begin() + m_from, middle.formats.begin(), middle.formats.end());
        auto& inside = middle.paragraphs;
        const bool isSingle = inside.size() <= 1;
        if (inside.empty()) {
            inside.push_back(m_before.paragraphs[std::size_t(end)]);
        }
        if (inFront || (isSingle && behind)) {
            inside.front() = m_before.paragraphs[std::size_t(inFront ? first : end)];
        }
        if (!isSingle && behind) {
            inside.back() = m_before.paragraphs[std::size_t(end)];
        }
        if (!isNothing) {
            auto& paragraphs = m_expected.paragraphs;
            paragraphs.erase(paragraphs.begin() + first, paragraphs.begin() + end + 1);
            paragraphs.insert(paragraphs.begin() + first, inside.begin(), inside.end());
        }
        // An end shows its format only in an empty paragraph: whose it is there is another matter.
        const qsizetype stop = m_from + middle.text.size();
        m_unknown = {m_expected.text.indexOf(u'\n', m_from), m_expected.text.indexOf(u'\n', stop)};
    }

    void setEverything() {
        last = u"everything"_qs;
        RichTextFragment fragment = m_random.fragment(1, 6, 8);
        if (m_random.once(2)) {
            // Most of what is there stays: the box may leave it alone.
            fragment = m_box.fragment();
            fragment.paragraphs[std::size_t(m_random.below(int(fragment.paragraphs.size())))] =
                m_random.paragraph(static_cast<int>(fragment.formats.size()), 3);
        }
        m_expected = flatten(fragment);
        m_box.setFragment(fragment);
        EXPECT_EQ(m_box.SelLength(), 0);
    }

    void changeFormat() {
        last = u"format"_qs;
        if (m_from == m_to) {
            return;
        }
        const CharacterFormat format = m_random.format();
        // An empty last paragraph is selected with the line end before it.
        const bool toTheEnd =
            m_to == m_before.text.size() - 1 && m_before.text.at(m_to - 1) == u'\n';
        const auto set = [&](auto CharacterFormat::*member) {
            for (int i = m_from; i < m_to + (toTheEnd ? 1 : 0); ++i) {
                m_expected.formats[std::size_t(i)].*member = format.*member;
            }
        };
        switch (m_random.below(4)) {
        case 0:
            set(&CharacterFormat::color);
            return m_box.setSelColor(format.color);
        case 1:
            set(&CharacterFormat::fontName);
            return m_box.setSelFontName(format.fontName);
        case 2:
            set(&CharacterFormat::halfPoints);
            return m_box.setSelFontSize(format.halfPoints / 2.0);
        default:
            set(&CharacterFormat::bold);
            return m_box.setSelBold(format.bold);
        }
    }

    void changeParagraphs() {
        last = u"paragraphs"_qs;
        const bool aligns = m_random.once(2);
        const auto alignment = static_cast<Alignment>(m_random.below(3));
        auto end = m_before.text.left(m_to).count(u'\n');
        // One of which nothing but its beginning is selected does not count, but for the last.
        if (m_to > m_from && m_before.text.at(m_to - 1) == u'\n' &&
            m_to < m_before.text.size() - 1) {
            --end;
        }
        for (auto i = m_before.text.left(m_from).count(u'\n'); i <= end; ++i) {
            ParagraphFormat& format = m_expected.paragraphs[std::size_t(i)];
            aligns ? void(format.alignment = alignment)
                   : void(format.leftOffsetTwips = format.firstLineOffsetTwips = 0);
        }
        aligns ? m_box.setSelAlignment(alignment) : m_box.clearSelOffset();
        if (aligns) {
            EXPECT_EQ(m_box.SelAlignment(), alignment);
        } else {
            EXPECT_FALSE(m_box.SelHasOffset());
        }
    }

    void find() {
        last = u"find"_qs;
        for (const QString& needle :
             {u"OFF"_qs, u"\u00E9"_qs, u"\r\n"_qs, u"\U0001F600"_qs, u"missing"_qs, QString()}) {
            const int start = m_random.below(m_box.textLength() + 5) - 2;
            const auto found =
                needle.isEmpty()
                    ? -1
                    : m_box.Text().toLower().indexOf(needle.toLower(), std::max(0, start));
            EXPECT_EQ(m_box.Find(needle, start), found);
            EXPECT_TRUE(found < 0 || m_box.SelText().toLower() == needle.toLower());
        }
    }

    void expectFormats(const FlatText& after) const {
        ASSERT_EQ(after.formats.size(), m_expected.formats.size());
        for (std::size_t i = 0; i < after.formats.size(); ++i) {
            const bool isEnd = after.text.at(qsizetype(i)) == u'\n';
            const bool isEmpty = isEnd && (i == 0 || after.text.at(qsizetype(i) - 1) == u'\n');
            const bool isKnown = isEmpty ? !m_unknown.contains(qsizetype(i)) : !isEnd;
            EXPECT_TRUE(!isKnown || after.formats[i] == m_expected.formats[i]) << i;
        }
    }

    void expectTellsItsContents() {
        QString text = plainText(m_box.fragment());
        text.replace(u'\n', u"\r\n"_qs).replace(QChar::LineSeparator, u'\v');
        EXPECT_EQ(m_box.Text(), text);
        EXPECT_EQ(m_box.textLength(), text.size());
        EXPECT_EQ(m_box.SelText(), text.mid(m_box.SelStart(), m_box.SelLength()));
        const FlatText selected = flatten(m_box.selectedFragment());
        if (selected.paragraphs.size() != 1 || selected.text.size() < 2) {
            return;
        }
        const auto shared = [&](auto member) {
            const auto& formats = selected.formats;
            const bool same = std::ranges::all_of(formats, [&](const CharacterFormat& format) {
                return format.*member == formats.front().*member;
            });
            return same ? std::optional(formats.front().*member) : std::nullopt;
        };
        EXPECT_EQ(m_box.SelColor(), shared(&CharacterFormat::color));
        EXPECT_EQ(m_box.SelBackColor(), shared(&CharacterFormat::backColor));
        EXPECT_EQ(m_box.SelFontName(), shared(&CharacterFormat::fontName));
        EXPECT_EQ(m_box.SelFontSize().has_value(),
                  shared(&CharacterFormat::halfPoints).has_value());
        EXPECT_EQ(m_box.SelBold(), shared(&CharacterFormat::bold));
    }

    /// The layout after all these changes is that of the same document made anew.
    void expectLaidOutAsIfNew() const {
        RichTextBox fresh;
        fresh.setWrapWidth(m_box.wrapWidth());
        fresh.setFragment(m_box.fragment());
        const int count = fresh.lineCount();
        ASSERT_EQ(m_box.lineCount(), count);
        const auto expected = fresh.lineMetrics(count);
        const auto actual = m_box.lineMetrics(count);
        for (int line = 0; line < count; ++line) {
            const auto& [index, length, y] = actual[std::size_t(line)];
            EXPECT_EQ(index, expected[std::size_t(line)].index);
            EXPECT_EQ(length, expected[std::size_t(line)].length);
            EXPECT_EQ(y, expected[std::size_t(line)].y);
            EXPECT_EQ(m_box.lineIndex(line), index);
            EXPECT_EQ(m_box.lineLength(index), length);
            EXPECT_EQ(m_box.verticalPosition(index), y);
            EXPECT_EQ(m_box.GetLineFromChar(index), line);
            EXPECT_EQ(m_box.lineHeight(line), fresh.lineHeight(line));
        }
    }

    RandomText m_random;
    RichTextBox m_box;
    FlatText m_before;
    FlatText m_expected;
    /// The selection before the operation, a line end being one character.
    int m_from = 0;
    int m_to = 0;
    /// Ends whose format is not foretold.
    std::set<qsizetype> m_unknown;
    int m_changes = 0;
};

TEST(BoxRandomEdits, TellTheSameAsAnArrayOfCharacters) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RandomEdits edits(seed);
        for (int step = 0; step < 150; ++step) {
            edits.step();
            ASSERT_FALSE(::testing::Test::HasFailure())
                << "seed " << seed << ", step " << step << ": " << edits.last.toStdString();
        }
    }
}

} // namespace
} // namespace velmora
