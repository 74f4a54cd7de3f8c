#include "platform/text_services/text_encoding.h"

#include <gtest/gtest.h>

#include <random>

namespace velmora {
namespace {

TEST(TextEncoding, WritesTheCodePageWhereItCanAndLosesNoCharacter) {
    EXPECT_EQ(encodeText(u"café €"_qs), QByteArray("caf\xE9 \x80"));
    EXPECT_EQ(encodeText(u"żółw"_qs).left(3), QByteArray("\xEF\xBB\xBF"));
    // The bytes of these in the code page would be taken for UTF-8 or for a mark.
    for (const char16_t* text : {u"Ã©", u"ÿþab", u"ï»¿", u"þÿ"}) {
        EXPECT_EQ(decodeText(encodeText(QString::fromUtf16(text))), QString::fromUtf16(text));
    }
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        QString text;
        const int highest = round % 2 == 0 ? 0xFF : 0x2FFF;
        for (int i = 0; i < 12; ++i) {
            text += QChar(static_cast<char16_t>(random() % static_cast<unsigned>(highest) + 1));
        }
        ASSERT_EQ(decodeText(encodeText(text)), text) << text.toStdString();
    }
}

} // namespace
} // namespace velmora
