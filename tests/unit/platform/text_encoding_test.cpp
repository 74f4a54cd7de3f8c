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

TEST(TextEncoding, KeepsAFilesOwnFormAndLosesNoCharacterToIt) {
    const TextForm ansi{TextEncoding::Windows1252, LineEnd::CrLf};
    EXPECT_EQ(encodeText(u"caf\u00E9\r\nb"_qs, ansi), "caf\xE9\r\nb");
    EXPECT_EQ(encodeText(u"\u017C\r\nb"_qs, ansi), "\xC5\xBC\r\nb") << "it has no such letter";
    EXPECT_EQ(encodeText(u"\u00C3\u00A9"_qs, ansi), "\xC3\x83\xC2\xA9") << "else it were UTF-8";
    EXPECT_EQ(encodeText(u"\u00E9\r\nb"_qs, {}), "\xC3\xA9\nb");
    EXPECT_EQ(decodeText(encodeText(u"\uFEFFx"_qs, {})), u"\uFEFFx"_qs);
}

TEST(TextEncoding, TellsTextFromWhatIsNone) {
    QByteArray random(4000, 0);
    std::mt19937 numbers(2);
    for (char& byte : random) {
        byte = static_cast<char>(numbers() % 255 + 1);
    }
    for (const QByteArray& bytes :
         {QByteArray("PK\x03\x04\x14\x00\x00\x08", 8), QByteArray("%PDF-1.7\n1 0 obj\n"),
          QByteArray("\x7F"
                     "ELF\x02\x01\x01\x00",
                     8),
          random}) {
        EXPECT_FALSE(looksLikeText(bytes)) << bytes.left(8).toStdString();
    }
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("one\x1Ctwo"), QByteArray("\xE9t\xE9\f\x1A"),
          QByteArray("\xFF\xFE\x41\x00", 4)}) {
        EXPECT_TRUE(looksLikeText(bytes)) << bytes.toStdString();
    }
}

} // namespace
} // namespace velmora
