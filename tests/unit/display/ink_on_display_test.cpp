#include "core/screen_scale.h"
#include "display/display_geometry.h"
#include "display/font_scale.h"
#include "display/frame_composer.h"
#include "display/script_preparation.h"
#include "platform/drawing/color.h"
#include "platform/rich_text/rich_text_box.h"
#include "support/fonts.h"
#include "unit/drawing/ink.h"

#include <QRawFont>

#include <gtest/gtest.h>

using namespace velmora;

namespace {

constexpr QSize Screens[] = {{640, 480},   {1280, 720},  {1366, 768},
                             {1920, 1080}, {2560, 1440}, {3840, 2160}};
constexpr int SingleSpacing = 26;
/// Pixels around a line where nothing may be lost.
constexpr int Room = 300;
/// Georgian, which the fonts that are compatible with Arial do not have: another font, with a
/// higher line, lends the letters.
const QString LentLetters = u"\u10d0\u10d1\u10d2 \u10e5\u10e6\u10ef"_qs;

RichTextFragment script() {
    const QString sans = u"Liberation Sans"_qs;
    const QString serif = u"Liberation Serif"_qs;
    const std::vector<std::vector<StyledText>> paragraphs = {
        {styled(u"Été à l'Île, Ñandú; ÅRGER über Öl, jolly gypsies quilting "_qs, sans, 52)},
        {styled(u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"_qs, sans, 52, "b")},
        {styled(u"jfjfjf "_qs, serif, 60, "i"), styled(u"Ågf ÊÇ"_qs, serif, 96, "bi"),
         styled(u" small gq"_qs, sans, 20)},
        {styled(LentLetters, sans, 52)},
        {styled(u"Ågj"_qs, sans, 64), styled(LentLetters.left(2), sans, 64)},
    };
    RichTextFragment text;
    for (const auto& runs : paragraphs) {
        appendParagraph(text, runs);
    }
    return text;
}

/// A show without windows: the script on a display of this size.
class Show final {
public:
    Show(const QSize& screen, int margin, Alignment alignment, GlyphMaskCache& cache)
        : m_alignment(alignment), m_cache(cache), m_composer(cache) {
        m_box.setBackColor(Black);
        m_box.setWrapWidth(wrapWidthForMargin(margin));
        m_box.setFragment(script());
        m_scale = fitScriptScale(m_box.TextRTF(), screen.width()).FontScale;
        geometry = layOutDisplay({screen.width(), screen.height(), m_box.wrapWidth(), m_scale, 0});
        m_tables = prepareScript(m_box, {m_box.lineCount(), m_scale, SingleSpacing, 0}, {});
        FrameSource source{
            &m_box, &m_tables, m_scale, geometry.WindowWidth(), geometry.textRows(), alignment};
        m_composer.begin(source);
        m_composer.addOutput(m_rows, Orientation::Plain);
    }

    [[nodiscard]] int lineCount() const { return m_tables.scanTable.lineCount(); }
    [[nodiscard]] QString text(int line) const {
        const LineEntry entry = m_tables.lineTable[static_cast<std::size_t>(line)];
        return m_box.Text().mid(entry.index, entry.length);
    }
    [[nodiscard]] int height(int line) const {
        return static_cast<int>(m_tables.scanTable.firstRowOfLine(line + 1) -
                                m_tables.scanTable.firstRowOfLine(line));
    }

    /// The line's rows as the display shows them.
    [[nodiscard]] QImage onDisplay(int line) {
        m_composer.showTop(m_tables.scanTable.firstRowOfLine(line));
        return m_rows.toImage().copy(0, 0, geometry.WindowWidth(), height(line));
    }

    /// The line with room all around.
    [[nodiscard]] QImage withRoom(int line) {
        const LineEntry entry = m_tables.lineTable[static_cast<std::size_t>(line)];
        PrintBox box;
        box.left = Room;
        box.width = geometry.WindowWidth() + 2.0 * Room;
        box.rowHeight = 2 * height(line);
        box.zoom = m_scale;
        box.alignment = m_alignment;
        Surface surface(geometry.WindowWidth() + 4 * Room, box.rowHeight);
        surface.fill(toPixel(Black));
        m_box.printRange(surface, entry.index, entry.length, box, m_cache);
        return surface.image();
    }

    DisplayGeometry geometry;

private:
    Alignment m_alignment;
    RichTextBox m_box;
    double m_scale = 1;
    ShowTables m_tables;
    GlyphMaskCache& m_cache;
    ScrollSurface m_rows;
    FrameComposer m_composer;
};

} // namespace

class InkOnDisplay : public ::testing::TestWithParam<QSize> {};

INSTANTIATE_TEST_SUITE_P(Screens, InkOnDisplay, ::testing::ValuesIn(Screens),
                         [](const auto& it) { return "W" + std::to_string(it.param.width()); });

TEST_P(InkOnDisplay, OfNoLineIsLost) {
    NEEDS_FONT("Liberation Sans"); // which has no Georgian letters
    ASSERT_FALSE(
        QRawFont::fromFont(QFont(u"Liberation Sans"_qs)).supportsCharacter(LentLetters[0]));
    GlyphMaskCache cache;
    for (const int margin : {MinColumnMargin, 160, MaxColumnMargin}) {
        for (const Alignment alignment : {Alignment::Left, Alignment::Centre, Alignment::Right}) {
            Show show(GetParam(), margin, alignment, cache);
            ASSERT_GE(show.lineCount(), 6);
            for (int line = 0; line < show.lineCount(); ++line) {
                const double whole = inkOf(show.withRoom(line)).amount;
                ASSERT_GT(whole, 0);
                EXPECT_NEAR(inkOf(show.onDisplay(line)).amount / whole, 1, 0.002)
                    << "margin " << margin << ", alignment " << static_cast<int>(alignment) << ", "
                    << show.height(line) << " rows: " << show.text(line).toStdString();
            }
        }
    }
}
