#include "platform/rich_text/rtf_tokenizer.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QElapsedTimer>

#include <string>

namespace velmora {
namespace {

std::string tokensOf(QByteArrayView input) {
    static constexpr const char* Kinds[] = {
        "{", "}", "word:", "symbol:", "hex:", "text:", "high:", "binary:"};
    RtfTokenizer tokenizer(input);
    std::string text;
    for (RtfToken token = tokenizer.next(); token.kind != RtfTokenKind::End;
         token = tokenizer.next()) {
        text += (text.empty() ? "" : " ") + std::string(Kinds[static_cast<int>(token.kind)]);
        if (token.kind == RtfTokenKind::Symbol || token.kind == RtfTokenKind::Hex) {
            text += std::to_string(token.byte);
        } else if (token.kind == RtfTokenKind::HighBytes) {
            text += std::to_string(token.text.size());
        } else {
            text += token.text;
        }
        const bool isWord = token.kind == RtfTokenKind::Word;
        text += isWord && token.hasParameter ? "=" + std::to_string(token.parameter) : "";
    }
    return text;
}

TEST(RtfTokenizer, CutsEveryFormOfToken) {
    struct Row final {
        QByteArray input;
        std::string tokens;
    };
    const Row rows[] = {
        {"{a}", "{ text:a }"},
        {"\\b x", "word:b text:x"},
        {"\\b  x", "word:b text: x"},
        {"\\b0x", "word:b=0 text:x"},
        {"\\li-360 x", "word:li=-360 text:x"},
        {"\\li-x", "word:li text:-x"},
        {"\\b\r\nx", "word:b text:x"},
        {"\\fs99999999999 ", "word:fs=2147483647"},
        {"\\u-99999999999", "word:u=-2147483647"},
        {"a\r\nb\n\rc", "text:a text:b text:c"},
        {QByteArray("a\0b\x01"
                    "c",
                    5),
         "text:a text:b text:c"},
        {"a\tb", "text:a\tb"},
        {"a\xE9\xE8z", "text:a high:2 text:z"},
        {"\\'e9\\'E9x", "hex:233 hex:233 text:x"},
        {"\\'zz", "symbol:39 text:zz"},
        {"\\'4", "symbol:39 text:4"},
        {"\\~\\*\\{", "symbol:126 symbol:42 symbol:123"},
        {"\\\r\nx\\\nx\\\rx", "symbol:10 text:x symbol:10 text:x symbol:10 text:x"},
        {"\\bin3 }{\\x", "binary:}{\\ text:x"},
        {"\\bin99 ab", "binary:ab"},
        {"\\bin-5 ab", "binary: text:ab"},
        {"x\\", "text:x"},
        {"", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(tokensOf(row.input), row.tokens) << row.input.constData();
    }
}

TEST(RtfTokenizer, SkipsAGroupWithWhateverItHolds) {
    for (const char* input : {"a{b{c}}d}x", "a\\}b\\{c}x", "\\bin3 }}}a}x", "a\\\\}x", "}x"}) {
        RtfTokenizer tokenizer{QByteArrayView(input)};
        tokenizer.skipGroup();
        EXPECT_EQ(tokenizer.next().kind, RtfTokenKind::GroupEnd) << input;
        EXPECT_EQ(tokenizer.next().text, "x") << input;
    }
    RtfTokenizer unclosed{QByteArrayView("a{b}c")};
    unclosed.skipGroup();
    EXPECT_EQ(unclosed.next().kind, RtfTokenKind::End);
}

TEST(RtfTokenizer, CountsClosingBracesWithoutAGroup) {
    EXPECT_EQ(RtfTokenizer(QByteArrayView("")).unmatchedClosings(), 0);
    EXPECT_EQ(RtfTokenizer(QByteArrayView("a{b}c")).unmatchedClosings(), 0);
    EXPECT_EQ(RtfTokenizer(QByteArrayView("a}b{}}c\\}")).unmatchedClosings(), 2);
}

TEST(RtfTokenizer, StaysOnItsFeetInLongDamagedInput) {
    // Each of these would exhaust the stack or the patience of a tokenizer that calls itself or
    // looks back.
    QElapsedTimer timer;
    timer.start();
    for (const char* piece : {"\\'", "\\", "{", "}", "\\bin", "\\-"}) {
        EXPECT_FALSE(tokensOf(QByteArray(piece).repeated(200'000)).empty());
    }
    EXPECT_LT(timer.elapsed(), 10'000);
}

} // namespace
} // namespace velmora
