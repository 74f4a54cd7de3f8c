#include "platform/rich_text/rtf_reader.h"

#include "platform/rich_text/rtf_interpreter.h"
#include "rtf_readings.h"

#include <QElapsedTimer>

namespace velmora {
namespace {

TEST(RtfReader, LineEndsAreCountedStrictly) {
    expectReadings({
        {"", u""_qs},
        {"a", u"a"_qs},
        {"a\\par", u"a|"_qs},
        {"\\par\\par", u"||"_qs},
        {"a\\\nb\\\r\nc", u"a|b|c"_qs},
        {"a\\u8233?b\\u8232?c", u"a|b/c"_qs},
        {"a\\page\\page b", u"a|b"_qs},
        {"\\page a", u"a"_qs},
    });
}

TEST(RtfReader, SymbolsAndEscapes) {
    expectReadings({
        {"\\{a\\}\\\\", u"{a}\\"_qs},
        {"a\\~b\\-c\\_d", u"a\u00a0b\u00adc\u2011d"_qs},
        {"a\\:b\\|c", u"abc"_qs},
        {"\\u-10180?\\u-8251?", u"\U0001F3C5"_qs},
        {"\\u55356?\\u57285?", u"\U0001F3C5"_qs},
        {"\\u127941?", u"\U0001F3C5"_qs},
        {"\\u-10180?a\\u-8251?", u"\ufffda\ufffd"_qs},
        {"a\\u-10180?\\par b", u"a\ufffd|b"_qs},
        {"a\\u0?\\u7?\\u65535?\\u64976?\\u-4?b", u"ab"_qs},
        {"\\u1114112?", u"\ufffd"_qs},
    });
}

TEST(RtfReader, WordsEndWhereTheirNumbersDo) {
    expectReadings({
        {"\\b  x\\b0x\\li-x", u"{b: x}x-x"_qs},
        {"\\li-360 x", u"[li-360]x"_qs},
        {"\\b\r\nx\n\ry", u"{b:xy}"_qs},
        {"\\fs99999999999 x\\u-99999999999y", u"{2000:x\ufffd}"_qs},
        {QByteArray("a\0b\x01z", 5), u"abz"_qs},
        {"\\'zz\\'4", u"zz4"_qs},
        {"\\bin3 }{\\x\\bin-5 ab", u"xab"_qs},
    });
}

TEST(RtfReader, ReplacementsOfUnicodeCharactersAreLeftOut) {
    expectReadings({
        {"\\u233ea", u"\u00e9a"_qs},
        {"\\uc0\\u233ea", u"\u00e9ea"_qs},
        {"\\uc2\\u233\\'81\\'5ca", u"\u00e9a"_qs},
        {"\\uc3\\u233 ab\\'63d", u"\u00e9d"_qs},
        {"\\u8211\\endash a", u"\u2013a"_qs},
        {"\\u8226\\~a", u"\u2022a"_qs},
        {"\\u233\\b ?a", u"\u00e9{b:a}"_qs},
        // The replacement never goes beyond its group, and one that is missing costs nothing.
        {"{\\u233}a", u"\u00e9a"_qs},
        {"\\u233\\par a", u"\u00e9|a"_qs},
        {"\\u233\\tab a", u"\u00e9\ta"_qs},
        {"\\u233\\u232?", u"\u00e9\u00e8"_qs},
        {"\\uc9\\u233{a}b", u"\u00e9ab"_qs},
    });
}

TEST(RtfReader, FormatsKeepToTheirGroups) {
    const QByteArray header = "{\\fonttbl{\\f0 A;}}{\\colortbl;\\red255\\green255\\blue255;"
                              "\\red255\\green255\\blue0;}";
    expectReadings({
        {"{\\b a{\\i b}c}d", u"{b:a}{b i:b}{b:c}d"_qs},
        {"{\\qc a\\par}b", u"[centre]a|b"_qs},
        {"\\fs0 a\\fs-5 b\\fs1 c\\fs99999 d", u"ab{2:c}{2000:d}"_qs},
        {"\\li99999\\fi-99999 a", u"[li31680 fi-31680]a"_qs},
        {"\\rtlpar\\qr a", u"[right rtl]a"_qs},
        {header + "\\cf1\\highlight2 a\\cf9\\highlight0 b", u"{c=ffffff h=ffff00 'A':a}{'A':b}"_qs},
        {header + "\\chcbpat1\\highlight2 a\\highlight0 b", u"{h=ffff00 'A':a}{h=ffffff 'A':b}"_qs},
        {header + "\\f7 a", u"{'A':a}"_qs},
        {"\\ul a\\uldb b\\ul0 c", u"{u:ab}c"_qs},
        {"\\strike\\striked a\\striked0 b\\strike0 c", u"{s:ab}c"_qs},
    });
}

TEST(RtfReader, FontTablesInEveryForm) {
    expectReadings({
        {"{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\fnil B;}\\f1 a", u"{'B':a}"_qs},
        {"{\\fonttbl{\\f0{\\*\\panose 020206}Times{\\*\\falt Roman};}}a", u"{'Times':a}"_qs},
        {"{\\fonttbl{\\f0 Arial}{\\f1 B}}\\f1 a", u"{'B':a}"_qs},
        {"{\\upr{\\fonttbl{\\f0 ?;}}{\\*\\ud{\\fonttbl{\\f0 \\u233?;}}}}a", u"{'\u00e9':a}"_qs},
        {"\\deff3{\\fonttbl{\\f3 C;}{\\f1 B;}}a", u"{'C':a}"_qs},
        {"{\\fonttbl{\\f5 C;}{\\f1 B;}}a", u"{'C':a}"_qs},
        {"{\\fonttbl}a", u"a"_qs},
        {"{\\fonttbl\\\n{\\f0 A;}\\\r\n{\\f1 B;}}\\f1 a", u"{'B':a}"_qs},
        // A family that has a name for each script, where the font says that it is of that script.
        {"{\\fonttbl{\\f0\\fcharset238 Arial CE;}}a", u"{'Arial':a}"_qs},
        {"{\\fonttbl{\\f0\\cpg1251 Times New Roman CYR;}}a", u"{'Times New Roman':a}"_qs},
        {"{\\fonttbl{\\f0\\fcharset177 Arial (Hebrew){\\*\\falt X};}}a", u"{'Arial':a}"_qs},
        {"{\\fonttbl{\\f0\\fcharset0 Arial CE;}}a", u"{'Arial CE':a}"_qs},
        {"{\\fonttbl{\\f0\\fcharset161 Arial CE;}}a", u"{'Arial CE':a}"_qs},
        {"{\\fonttbl{\\f0\\fcharset161  Greek;}}a", u"{'Greek':a}"_qs},
    });
}

TEST(RtfReader, StylesAreAppliedWithWhatTheyAreBasedOn) {
    const QByteArray styles = "{\\stylesheet{\\qc\\fs20 Normal;}{\\s1\\b\\sbasedon0 H;}"
                              "{\\s2\\b0\\i\\sbasedon1 C;}{\\*\\cs9\\additive\\ul U;}"
                              "{\\s4\\b\\sbasedon5 R;}{\\s5\\i\\sbasedon4 S;}"
                              "{\\s6\\b\\sbasedon222 T;}{\\*\\unheardof\\s0\\qr X;}}";
    expectReadings({
        {styles + "a", u"a"_qs},
        {styles + "\\s0 a", u"[centre]{20:a}"_qs},
        {styles + "\\s1 a", u"[centre]{b 20:a}"_qs},
        {styles + "\\s2 a", u"[centre]{i 20:a}"_qs},
        {styles + "\\s1\\fs50 a{\\cs9 b}", u"[centre]{b 50:a}{b u 50:b}"_qs},
        {styles + "\\s4 a", u"{b i:a}"_qs},
        {styles + "\\s6 a", u"{b:a}"_qs},
        {styles + "\\s77 a", u"a"_qs},
    });
}

TEST(RtfReader, TablesBecomeLinesWithTabs) {
    expectReadings({
        {"\\trowd\\intbl a\\cell b\\cell\\row\\pard c\\par", u"a\tb|c|"_qs},
        {"a\\cell\\cell\\cell\\row b", u"a|b"_qs},
        {"\\cell\\cell a\\cell\\row", u"\t\ta|"_qs},
        {"a\\par b\\cell c\\cell\\row", u"a|b\tc|"_qs},
        {"\\qc a\\cell\\qr b\\cell\\pard\\row c", u"[centre]a\tb|c"_qs},
        {"a\\nestcell b\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}c\\cell"
         "\\row",
         u"a\tb|c|"_qs},
    });
}

TEST(RtfReader, FieldsObjectsAndLabels) {
    expectReadings({
        {"a {\\field{\\*\\fldinst{HYPERLINK \"http://x\"}}{\\fldrslt{\\ul b}}} c", u"a {u:b} c"_qs},
        {"{\\field{\\*\\fldinst A}{\\fldrslt{\\field{\\*\\fldinst B}{\\fldrslt 42}}}}", u"42"_qs},
        {"{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst B}{\\fldrslt x}}}{\\fldrslt y}}", u"y"_qs},
        {"a{\\object{\\*\\objdata 0102}{\\result{\\pict 0102}b}}c", u"abc"_qs},
        {"a{\\pict\\pngblip\\bin5 }}{{\\ 0102}b", u"ab"_qs},
        {"a{\\*\\shppict{\\pict 01}}{\\nonshppict{\\pict 02}}b", u"ab"_qs},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn a}{\\sv b}}{\\shptxt c}}}d", u"d"_qs},
        {"a{\\super{\\footnote\\pard b\\par}}c", u"ac"_qs},
        {"a{\\*\\atnid x}{\\*\\annotation b}c", u"ac"_qs},
        {"{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}a", u"\u00b7\ta"_qs},
        {"{\\listtext 1.\\tab}{\\pntext 1.\\tab}a\\par{\\listtext 2.\\tab}b", u"1.\ta|2.\tb"_qs},
        {"{\\*\\htmltag <b>}\\htmlrtf {\\b\\htmlrtf0 a\\htmlrtf}\\htmlrtf0", u"{b:a}"_qs},
        {"{\\*\\unheardof a}{\\unheardof b}", u"b"_qs},
        {"{\\field{\\*\\fldinst EQ \\\\o\\\\ad(\\\\s\\\\up 9(\\u12363?),\\u26085?)}{\\fldrslt }}a",
         u"\u304b \u65e5a"_qs},
        {"{\\field{\\*\\fldinst EQ \\\\f(1;2)}}a{\\field{\\*\\fldinst PAGE}}", u"1 2a"_qs},
    });
}

TEST(RtfReader, WhatIsLeftOutIsCountedWhereItHeldSomething) {
    struct OmissionRow final {
        QByteArray rtf;
        RtfOmissions omitted;
    };
    const OmissionRow rows[] = {
        {"a{\\info{\\title b}}{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}{\\*\\unheardof b}", {}},
        {"{\\header\\pard\\par}{\\footnote  }{\\*\\annotation\\pard\\par}", {}},
        {"{\\headerf a}{\\footer{\\b\\'e9}}{\\footerr{\\pict 01}}", {.headersAndFooters = 3}},
        {"{\\header{\\*\\unheardof a}{\\xe b}\\par}", {}},
        {"a{\\super\\chftn{\\footnote\\pard b}}{\\footnote\\u233?}", {.footnotes = 2}},
        {"{\\*\\atnid a}{\\*\\atnauthor b}\\chatn{\\*\\annotation{\\*\\atndate 1}c}",
         {.comments = 1}},
        {"{\\*\\shppict{\\pict 01}}{\\nonshppict{\\pict 01}}{\\pict 02}", {.pictures = 2}},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn a}{\\sv b}}{\\shptxt\\pard c\\par}}}", {.textBoxes = 1}},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv{\\pict 01}}}}}", {.pictures = 1}},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn a}{\\sv b}}{\\shptxt\\pard\\par}}}", {}},
        {"{\\*\\do\\dobxpage{\\dptxbx{\\dptxbxtext a}}}", {.textBoxes = 1}},
        {"{\\object{\\*\\objdata 01}}{\\object{\\*\\objdata 01}{\\result b}}", {.objects = 1}},
        {"{\\object{\\*\\objdata 01}{\\result{\\pict 01}}}", {.pictures = 1}},
        {"{\\v{\\pict 01}}{\\*\\listpicture{\\*\\shppict{\\pict 01}}}", {}},
    };
    for (const OmissionRow& row : rows) {
        EXPECT_TRUE(readRtf("{\\rtf1 " + row.rtf + "}").omitted == row.omitted)
            << row.rtf.constData();
    }
}

TEST(RtfReader, ADamagedFileGivesWhatCanBeRead) {
    expectReadings({
        {"{\\rtf1 a{\\b b", u"a{b:b}"_qs},
        {"{\\rtf1 a}b", u"a"_qs},
        {"{\\rtf1 a}\r\n\\par }b", u"a|"_qs},
        {"{\\rtf1{\\fonttbl{\\f0 A;{\\f1 B;}}\\pard\\f1 a\\par}", u"{'B':a}|"_qs},
        {"{\\rtf1{\\stylesheet{\\s0 N;{\\s1 H;}}\\pard a\\par b}", u"a|b"_qs},
        {"{\\rtf1{\\stylesheet{\\s0\\pard N;}{\\s1 H;}\\pard a\\par b}", u"a|b"_qs},
        {"{\\rtf1{\\info {\\title x}\n{\n\\pard a\\par}{\\pard b\\par}}", u"a|b|"_qs},
        {"{\\rtf1 a\\bin99 b", u"a"_qs},
        {"{\\rtf1 a\\", u"a"_qs},
        {"{\\rtf1 a{\\info{\\title b}", u"a"_qs},
        // One lost brace in a group that is passed over, or two: the paragraphs behind it are kept.
        {"{\\rtf1{\\info{\\title x}\\pard a\\par b\\par}", u"a|b|"_qs},
        {"{\\rtf1{\\info{\\title x\\pard a\\par b\\par}", u"a|b|"_qs},
        {"{\\rtf1{\\*\\listtable{\\list{\\listlevel\\listid1}}\\pard a\\par}\r\n", u"a|"_qs},
        {"{\\rtf1{\\*\\listtable{\\list{\\listlevel}\\pard a{\\b b}\\par}", u"a{b:b}|"_qs},
        {"{\\rtf1{\\upr{\\title x{\\*\\ud{\\title y}}}\\pard a\\par}", u"a|"_qs},
        {"{\\rtf1{\\header\\pard x\\par}{\\pict 01\\par a\\par}", u"|a|"_qs},
        {"{\\rtf1{\\*\\nesttableprops\\nestrow\\pard a\\par}", u"|a|"_qs},
        // Groups that are whole stay passed over, whatever else is lost.
        {"{\\rtf1{\\b a{\\footnote\\pard x\\par}\\par b\\par}", u"{b:a}|{b:b}|"_qs},
        {"{\\rtf1 a{\\shp{\\*\\shpinst{\\shptxt\\pard x\\par}}{\\info\\pard b\\par}", u"ab|"_qs},
        {"a\\'3?b\\'g1c", u"abg1c"_qs},
        {"a{*\\themedata lost}{\\list{\\listname lost;}}b{*\\b c}", u"ab*{b:c}"_qs},
        {"a{{\\NeXTGraphic x.tiff}\xac}b\xac", u"ab\u00ac"_qs},
    });
}

TEST(RtfReader, AWordSaysWhatAGroupIsForOnlyAtItsStart) {
    expectReadings({
        {"{\\b0}a \\*\\unheardof b\\par c", u"a b|c"_qs},
        {"{\\b0}a\\footnote  b\\par c", u"a b|c"_qs},
        {"{\\b a\\pict b}c", u"{b:ab}c"_qs},
        {"{\\b0}a\\fldinst b\\upr c\\par d", u"abc|d"_qs},
        {"\\info{\\title x}}\\pard a\\par}", u"a|"_qs},
        {"{\\*\\unheardof x}{\\*\\b\\unheardof x}{{\\pict x}a}", u"a"_qs},
    });
    EXPECT_TRUE(readRtf("\xEF\xBB\xBF\r\n {\\rtf a}").outcome);
    for (const char* none :
         {"", "a", "{", "{\\rt", "{\\rtfx a}", "{a\\rtf1}", "\\rtf1 a", "}{\\rtf1 a}"}) {
        const RtfReadResult result = readRtf(none);
        EXPECT_FALSE(result.outcome) << none;
        EXPECT_FALSE(result.outcome.reason().isEmpty());
        EXPECT_TRUE(result.fragment.paragraphs.empty());
    }
}

/// One character in each of so many formats, all different.
QByteArray manyFormats(int count) {
    QByteArray rtf = "{\\colortbl";
    for (int color = 0; color < 100; ++color) {
        rtf += "\\red" + QByteArray::number(color) + ";";
    }
    rtf += "}";
    for (int format = 0; format < count; ++format) {
        rtf += "\\cf" + QByteArray::number(format % 100) + "\\fs" +
               QByteArray::number(2 + format / 100) + " a";
    }
    return rtf;
}

TEST(RtfReader, HostileSizesAreBounded) {
    const qsizetype depth = static_cast<qsizetype>(RtfInterpreter::MaxDepth);
    struct Hostile final {
        QByteArray rtf;
        qsizetype textLength;
    };
    const Hostile files[] = {
        {"{\\rtf1 " + QByteArray(3 * depth, '{') + "a" + QByteArray(3 * depth, '}') + "b}", 1},
        {"{\\rtf1 " + QByteArray("{\\b ").repeated(depth / 2) + "a", 1},
        {"{\\rtf1 " + QByteArray("}a").repeated(500'000), 500'000 - 1},
        {"{\\rtf1 " + QByteArray("\\cell ").repeated(500'000) + "a}", 257},
        {"{\\rtf1{\\fonttbl" + QByteArray("{\\f1\\cpg77 ;}").repeated(100'000) + "}a}", 1},
        {"{\\rtf1" + QByteArray("{\\stylesheet{\\s1\\b ;}}\\s1").repeated(100'000) + " a}", 1},
        {"{\\rtf1{\\colortbl" + QByteArray(500'000, ';') + "}\\cf499999 a}", 1},
        {"{\\rtf1{\\fonttbl{\\f0 " + QByteArray(500'000, 'x') + ";}}a}", 1},
        {"{\\rtf1{\\field{\\*\\fldinst " + QByteArray(500'000, 'x') + "}}a}", 1},
        {"{\\rtf1\\" + QByteArray(500'000, 'x') + " a}", 1},
        {"{\\rtf1" + QByteArray("{\\info\\par ").repeated(200'000), 0},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset2 Wingdings;}{\\f1 A;}}" +
             QByteArray("\\'e0:").repeated(200'000) + "}",
         400'000},
        {"{\\rtf1" + manyFormats(140'000) + "}", 140'000},
        {"{\\rtf1\\uc999999\\u233 " + QByteArray(300, 'x') + "}", 46},
    };
    for (const Hostile& file : files) {
        QElapsedTimer timer;
        timer.start();
        const RtfReadResult result = readRtf(file.rtf);
        EXPECT_LT(timer.elapsed(), 5'000) << file.rtf.first(40).constData();
        EXPECT_LE(result.fragment.formats.size(), RtfFragmentBuilder::MaxFormats);
        EXPECT_EQ(result.omitted.formats > 0,
                  result.fragment.formats.size() == RtfFragmentBuilder::MaxFormats);
        ASSERT_TRUE(result.outcome) << file.rtf.first(40).constData();
        EXPECT_EQ(faultOf(result.fragment).toStdString(), "");
        ASSERT_FALSE(result.fragment.paragraphs.empty());
        EXPECT_EQ(result.fragment.paragraphs.back().text.size(), file.textLength)
            << file.rtf.first(40).constData();
    }
}

TEST(RtfReader, IsStoppedWhereItsWatcherWantsIt) {
    double last = 0;
    const auto until = [&last](double share) { return (last = share) < 0.3; };
    EXPECT_FALSE(readRtf("{\\rtf1" + QByteArray("a\\b ").repeated(100'000) + "}", until).outcome);
    EXPECT_LT(last, 0.5);
}

} // namespace
} // namespace velmora
