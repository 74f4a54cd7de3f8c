#include "core/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

TEST(RoundHalfEven, GivesHalvesToTheEvenNeighbourOnBothSidesOfZero) {
    const std::pair<double, std::int64_t> cases[] = {
        {0.5, 0},
        {2.5, 2},
        {-2.5, -2},
        {2.51, 3},
        {0.49999999999999994, 0},
        {1e15 + 0.5, 1000000000000000},
        {1e300, std::numeric_limits<std::int64_t>::max()},
        {-1e300, std::numeric_limits<std::int64_t>::min()},
        {std::nan(""), 0}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(roundHalfEven(value), rounded) << value;
    }
}

TEST(PrintNumber, WritesTheFormOfTheSettingsFileAndReadsItBack) {
    const std::pair<double, const char16_t*> cases[] = {{12, u" 12 "},
                                                        {-3, u"-3 "},
                                                        {1.5, u" 1.5 "},
                                                        {0.1, u" .1 "},
                                                        {-0.25, u"-.25 "},
                                                        {0, u" 0 "},
                                                        {-0.0, u" 0 "},
                                                        {1.2000000000000002, u" 1.2 "},
                                                        {16777215, u" 16777215 "},
                                                        {1e20, u" 1E+20 "},
                                                        {119.99999999999999, u" 120 "}};
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(printNumber(value), QString::fromUtf16(text));
        EXPECT_NEAR(readNumber(printNumber(value).trimmed()).value_or(NAN), value,
                    1e-14 * std::fabs(value));
    }
}

TEST(ReadNumber, TakesDecimalDigitsAndNothingElse) {
    for (const char16_t* text : {u"12", u"-3", u"+3", u".5", u"5.", u"1E3", u"1e-3", u"007"}) {
        EXPECT_TRUE(readNumber(QStringView(text))) << QString::fromUtf16(text).toStdString();
    }
    for (const char16_t* text : {u"", u".", u"-", u"1E", u"inf", u"nan", u"0x10", u"1,000", u"12a",
                                 u"C:/show", u"1e999", u"- 3"}) {
        EXPECT_FALSE(readNumber(QStringView(text))) << QString::fromUtf16(text).toStdString();
    }
}

TEST(NumberTexts, FollowTheirPatterns) {
    EXPECT_EQ(formatThousands(0), QString());
    EXPECT_EQ(formatThousands(999), u"999");
    EXPECT_EQ(formatThousands(1234), u"1,234");
    EXPECT_EQ(formatThousands(1234567), u"1,234,567");
    EXPECT_EQ(formatWithColon(125), u"01:25");
    EXPECT_EQ(formatWithColon(-125), u"-01:25");
    const std::pair<double, const char16_t*> clocks[] = {
        {0, u"00:00"},    {59.999, u"00:59"}, {60, u"01:00"}, {90, u"01:30"},
        {3599, u"59:59"}, {6000, u"100:00"},  {-5, u"00:00"}, {std::nan(""), u"00:00"}};
    for (const auto& [seconds, text] : clocks) {
        EXPECT_EQ(clockText(seconds), QString::fromUtf16(text)) << seconds;
    }
}

} // namespace
} // namespace velmora
