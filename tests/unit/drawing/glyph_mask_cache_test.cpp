#include "platform/drawing/glyph_mask_cache.h"

#include <QFont>

#include <gtest/gtest.h>

using namespace velmora;

namespace {

QRawFont sansFont(bool bold = false) {
    QFont font(u"Liberation Sans"_qs);
    font.setPixelSize(96);
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return QRawFont::fromFont(font);
}

std::uint32_t glyphOf(const QRawFont& font, QChar character) {
    return font.glyphIndexesForString(QString(character)).constFirst();
}

} // namespace

TEST(GlyphMaskCache, StaysBelowItsLimitAndForgetsTheLeastRecentlyUsed) {
    constexpr std::int64_t Limit = 100'000;
    const QRawFont font = sansFont();
    GlyphMaskCache cache(Limit);
    const std::uint32_t often = glyphOf(font, u'o');
    for (int round = 0; round < 400; ++round) {
        (void)cache.mask(font, 40 + round % 200 * 0.25, glyphOf(font, QChar(u'A' + round % 50)));
        EXPECT_LE(cache.bytes(), Limit);
        const std::int64_t made = cache.masksMade();
        EXPECT_FALSE(cache.mask(font, 50.5, often).coverage.isNull());
        EXPECT_EQ(cache.masksMade(), made + (round == 0 ? 1 : 0)) << "what is in use stays";
    }
    EXPECT_GT(cache.bytes(), Limit / 2);
    EXPECT_FALSE(cache.mask(font, 600, glyphOf(font, u'W')).drawable) << "it would throw out all";
    const std::int64_t made = cache.masksMade();
    (void)cache.mask(font, 40, glyphOf(font, u'A'));
    EXPECT_EQ(cache.masksMade(), made + 1) << "the first one is gone";
}

TEST(GlyphMaskCache, TellsFacesSizesAndGlyphsApart) {
    const QRawFont regular = sansFont();
    const QRawFont bold = sansFont(true);
    GlyphMaskCache cache;
    const QImage one = cache.mask(regular, 60, glyphOf(regular, u'k')).coverage;
    EXPECT_NE(cache.mask(bold, 60, glyphOf(bold, u'k')).coverage, one);
    EXPECT_NE(cache.mask(regular, 60.25, glyphOf(regular, u'k')).coverage, one);
    EXPECT_NE(cache.mask(regular, 60, glyphOf(regular, u'h')).coverage, one);
    EXPECT_EQ(cache.mask(regular, 60, glyphOf(regular, u'k')).coverage, one);
    EXPECT_EQ(cache.masksMade(), 4);
}
