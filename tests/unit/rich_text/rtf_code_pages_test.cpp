#include "platform/rich_text/rtf_code_pages.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_symbol_field.h"
#include "platform/rich_text/rtf_symbol_fonts.h"
#include "rtf_readings.h"

namespace velmora {
namespace {

TEST(RtfCodePages, ReadTheBytesOfEveryFamily) {
    expectReadings({
        {"\\ansicpg1252\\'80\\'99\\'e9", u"\u20ac\u2122\u00e9"_qs},
        {"\\ansicpg1250\\'e8\\'f9", u"\u010d\u016f"_qs},
        {"\\ansicpg1251\\'cf\\'f0", u"\u041f\u0440"_qs},
        {"\\ansicpg1253\\'e1", u"\u03b1"_qs},
        {"\\ansicpg1254\\'fe", u"\u015f"_qs},
        {"\\ansicpg1255\\'f9", u"[rtl]\u05e9"_qs},
        {"\\ansicpg1256\\'c7", u"[rtl]\u0627"_qs},
        {"\\ansicpg1257\\'e0", u"\u0105"_qs},
        {"\\ansicpg1258\\'fd", u"\u01b0"_qs},
        {"\\ansicpg874\\'a1", u"\u0e01"_qs},
        {"\\ansicpg10000\\'8e", u"\u00e9"_qs},
        // Double-byte pages: escaped, raw, mixed, and with ASCII as the second byte.
        {"\\ansicpg932\\'82\\'b1\\'b1", u"\u3053\uff71"_qs},
        {"\\ansicpg932 \x82\xb1"
         "a",
         u"\u3053a"_qs},
        {"\\ansicpg932\\'83e\\'83X", u"\u30c6\u30b9"_qs},
        {"\\ansicpg932 \x83"
         "e\\'83\\'58",
         u"\u30c6\u30b9"_qs},
        {"\\ansicpg932\\'83\\\\", u"\u30bd"_qs},
        {"\\ansicpg932\\'83\\'5c", u"\u30bd"_qs},
        {"\\ansicpg932 \x83\\\x83g", u"\u30bd\u30c8"_qs},
        {"\\ansicpg936\\'c4\\'e3\\'ba\\'c3", u"\u4f60\u597d"_qs},
        {"\\ansicpg949\\'b8\\'bc", u"\ub9d1"_qs},
        {"\\ansicpg950\\'a4\\'a4\\'a4@", u"\u4e2d\u4e00"_qs},
        {"\\ansicpg65001\\'c3\\'a9 \xe2\x82\xac\xf0\x9f\x8e\xa5", u"\u00e9 \u20ac\U0001F3A5"_qs},
        // A character cut into two runs, and one whose second half never comes.
        {"\\ansicpg932\\'82{\\b\\'b1}a", u"{b:\u3053}a"_qs},
        {"\\ansicpg932\\'82\\par a", u"\u201a|a"_qs},
        {"\\ansicpg932 a\\'82", u"a\u201a"_qs},
        {"\\ansicpg932\\'82 \\'82\\'b1", u"\u201a \u3053"_qs},
        // Code pages that do not exist are Windows-1252; so are Unicode numbers that are none.
        {"\\ansicpg99999\\'e9", u"\u00e9"_qs},
        {"\\u133?\\u150?", u"\u2026\u2013"_qs},
        // \ansicpg counts more than \mac, wherever it stands.
        {"\\ansicpg1251\\mac\\'e9", u"\u0439"_qs},
    });
}

TEST(RtfCodePages, RawBytesBehindAMarkOfUtf8AreUtf8) {
    expectReadings({
        {"\xEF\xBB\xBF{\\rtf1{\\fonttbl{\\f0\\fcharset204 \xC3\xA9;}{\\f1\\fcharset2 Symbol;}}"
         "\xC3\xA9 \xF0\x9F\x8E\xA5\\'e9\\b\\f1\xE2\x82\xAC}",
         u"{'\u00e9':\u00e9 \U0001F3A5\u0439}{b '\u00e9':\u20ac}"_qs},
        // The mark does not make UTF-8 of what is none.
        {"\xEF\xBB\xBF{\\rtf1\\ansi caf\xE9}", u"caf\u00e9"_qs},
    });
}

TEST(RtfCodePages, TheFontDecides) {
    const QByteArray fonts = "\\ansicpg1251{\\fonttbl{\\f0\\fcharset0 L;}{\\f1\\fcharset1 D;}"
                             "{\\f2\\fcharset128 J;}{\\f3\\fcharset0\\cpg1253 G;}{\\f4 N;}"
                             "{\\f5\\fcharset77 M;}}";
    expectReadings({
        {fonts + "\\f0\\'e9\\f1\\'e9\\f2\\'82\\'b1\\f3\\'e1\\f4\\'e9\\f5\\'8e",
         u"{'L':\u00e9}{'D':\u0439}{'J':\u3053}{'G':\u03b1}{'N':\u0439}{'M':\u00e9}"_qs},
        // A lead byte alone, as bullets are written; the next one is no other half.
        {fonts + "\\f2\\'96\\tab\\'96 a\\'82\\'b1", u"{'J':\u2013\t\u2013 a\u3053}"_qs},
        // The name alone tells the code page.
        {"{\\fonttbl{\\f0 A CE;}{\\f1 B Cyr;}{\\f2 C Greek;}{\\f3 D "
         "(Hebrew);}}\\f0\\'e8\\f1\\'e9\\f2"
         "\\'e1\\f3\\'e0",
         u"{'A':\u010d}{'B':\u0439}{'C':\u03b1}{'D':\u05d0}"_qs},
        {"{\\fonttbl{\\f0\\fcharset129 \\'b8\\'bc\\'c0\\'ba;}}a", u"{'\ub9d1\uc740':a}"_qs},
    });
}

TEST(RtfCodePages, SymbolFontsBecomeUnicode) {
    struct Row final {
        QByteArray font;
        QByteArray text;
        QString reading;
    };
    const Row rows[] = {
        {"\\fcharset2 Symbol", "ab\\'b7\\u-4031?", u"\u03b1\u03b2\u2022\u0391"_qs},
        {"\\fcharset2 Wingdings", "J\\'e0\\'fc\\'d8", u"\u263a\u2192\u2713\u27a2"_qs},
        {"\\fcharset2 ZapfDingbats", "4\\'d5n", u"\u2714\u2192\u25a0"_qs},
        {"\\fcharset2 Zapf Dingbats", "\\u-4031?", u"\u2721"_qs},
        // The name alone says nothing: it may be ordinary text in that font.
        {" Symbol", "a\\'b7\\u-3913?", u"a\u00b7\u2022"_qs},
        {" Liberation Serif", "\\u61623\\'3f\\u-4031\\'3f", u"\u2022\u0391"_qs},
        {"\\fcharset0 Symbol", "a\\'b7", u"a\u00b7"_qs},
        // An unknown symbol font keeps words readable; its other signs are mostly Symbol's.
        {"\\fcharset2 Webthings", "a\\'b7\\u-4031?", u"a\u2022A"_qs},
    };
    for (const Row& row : rows) {
        const QString reading =
            describeRtf("{\\fonttbl{\\f0\\fcharset0 A;}{\\f1" + row.font + ";}}\\f1 " + row.text);
        EXPECT_EQ(reading.section(u':', 1).chopped(1).toStdString(), row.reading.toStdString())
            << row.font.constData();
    }
}

TEST(RtfCodePages, SignsOfSymbolFontsTakeTheFontOfTheTextAroundThem) {
    const QByteArray fonts = "\\deff2{\\fonttbl{\\f0 A;}{\\f1\\fcharset2 Symbol;}{\\f2 D;}"
                             "{\\f3\\fcharset2 Wingdings;}{\\f4\\fcharset2 Webthings;}}";
    expectReadings({
        {fonts + "{\\f0{\\listtext\\f1\\'b7\\tab}a}", u"{'A':\u2022\ta}"_qs},
        {fonts + "\\f0 a\\f1\\'b7\\u-3913?\\f0 b", u"{'A':a\u2022\u2022b}"_qs},
        {fonts + "{\\f0 a}{\\f1\\'b7}", u"{'A':a}{'D':\u2022}"_qs},
        {fonts + "\\f0\\plain\\f1\\'b7", u"{'D':\u2022}"_qs},
        {fonts + "\\f0\\f1{\\b\\'b7}\\par", u"{b 'A':\u2022}|"_qs},
        // What Unicode lacks can only be shown in the font itself.
        {fonts + "\\f0\\f3\\'e0\\'3a\\'e0", u"{'A':\u2192}{'Wingdings':\uf03a}{'A':\u2192}"_qs},
        {fonts + "\\f0\\f4 a\\'b7", u"{'Webthings':a\u2022}"_qs},
        // A table without a font for text.
        {"{\\fonttbl{\\f1\\fcharset2 Symbol;}}\\'b7", u"{'Symbol':\u2022}"_qs},
        {"{\\fonttbl{\\f1\\fcharset2 Symbol;}{\\f2 B;}}\\'b7", u"{'B':\u2022}"_qs},
    });
}

TEST(RtfCodePages, SymbolFieldsShowTheirSign) {
    EXPECT_EQ(symbolOfField(u" SYMBOL 224 \\f \"Wingdings\" \\s 12 "_qs), u'\u2192');
    EXPECT_EQ(symbolOfField(u"symbol 61623 \\f \"Symbol\""_qs), u'\u2022');
    EXPECT_EQ(symbolOfField(u"SYMBOL 0x2022 \\u"_qs), u'\u2022');
    EXPECT_EQ(symbolOfField(u"SYMBOL 133"_qs), u'\u2026');
    for (const char* other :
         {"", "SYMBOL", "SYMBOL 3", "SYMBOL 99999", "PAGE 224", "SYMBOLS 224"}) {
        EXPECT_EQ(symbolOfField(QString::fromLatin1(other)), u'\0') << other;
    }
}

} // namespace
} // namespace velmora
