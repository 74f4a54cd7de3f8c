#include "platform/rich_text/rtf_control_words.h"

#include "rtf_readings.h"

#include <cctype>
#include <map>
#include <set>
#include <string>

namespace velmora {
namespace {

#define FONTS "{\\fonttbl{\\f0 A;}{\\f1 B;}}"
#define COLORS "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green255\\blue0;}"

// One sample for each control word, in which the word makes a difference.
const std::map<std::string, RtfReading>& samplesWithOwnReading() {
    static const std::map<std::string, RtfReading> Samples = {
        {"tab", {"a\\tab b", u"a\tb"_qs}},
        {"line", {"a\\line b", u"a/b"_qs}},
        {"lbr", {"a\\lbr1 b", u"a/b"_qs}},
        {"par", {"a\\par b\\par", u"a|b|"_qs}},
        {"page", {"a\\page b", u"a|b"_qs}},
        {"sect", {"a\\sect\\sectd b", u"a|b"_qs}},
        {"column", {"a\\column b", u"a|b"_qs}},
        {"cell", {"\\trowd a\\cell b\\cell\\row c", u"a\tb|c"_qs}},
        {"row", {"\\trowd a\\cell b\\cell\\row c", u"a\tb|c"_qs}},
        {"nestcell", {"a\\nestcell b\\nestcell", u"a\tb"_qs}},
        {"nestrow", {"a\\nestcell{\\*\\nesttableprops\\nestrow}b", u"a|b"_qs}},
        {"NeXTGraphic",
         {"a{{\\NeXTGraphic x.tiff \\width640 \\height480 \\noorient}\\'ac}\\'ac b",
          u"a\u00ac b"_qs}},
        {"result", {"{\\object{\\*\\objdata 01}{\\result a}}", u"a"_qs}},
        {"nesttableprops", {"{\\*\\nesttableprops a\\par b}c", u"a|bc"_qs}},
        {"u", {"a\\u233?b", u"a\u00e9b"_qs}},
        {"uc", {"{\\uc2\\u233\\'e8?}\\u232?b", u"\u00e9\u00e8b"_qs}},

        {"plain", {"\\b\\fs40\\plain a", u"a"_qs}},
        {"b", {"\\b a\\b0 b", u"{b:a}b"_qs}},
        {"i", {"{\\i a}b", u"{i:a}b"_qs}},
        {"ulnone", {"\\ul a\\ulnone b", u"{u:a}b"_qs}},
        {"strike", {"\\strike a\\strike0 b", u"{s:a}b"_qs}},
        {"striked", {"\\striked1 a\\striked0 b", u"{s:a}b"_qs}},
        {"caps", {"{\\caps stra\\'dfe, \\'e9t\\'e9}a", u"STRASSE, \u00c9T\u00c9a"_qs}},
        {"v", {"a{\\v b\\par}c", u"ac"_qs}},
        {"deleted", {"a{\\deleted b\\par}c", u"ac"_qs}},
        {"mvf", {"a{\\mvf b\\par}c{\\mvt b}", u"acb"_qs}},
        {"f", {FONTS "\\f1 a", u"{'B':a}"_qs}},
        {"fs", {"\\fs53 a", u"{53:a}"_qs}},
        {"cf", {COLORS "\\cf1 a\\cf0 b", u"{c=ff0000:a}b"_qs}},
        {"highlight", {COLORS "\\highlight2 a\\highlight0 b", u"{h=00ff00:a}b"_qs}},
        {"cb", {COLORS "\\cb1 a", u"{h=ff0000:a}"_qs}},
        {"chcbpat", {COLORS "\\chcbpat1 a", u"{h=ff0000:a}"_qs}},

        {"pard", {"\\qc a\\par\\pard b", u"[centre]a|b"_qs}},
        {"ql", {"\\qc\\ql a", u"a"_qs}},
        {"qj", {"\\qc\\qj a", u"a"_qs}},
        {"qd", {"\\qc\\qd a", u"a"_qs}},
        {"qt", {"\\qc\\qt a", u"a"_qs}},
        {"qk", {"\\qc\\qk10 a", u"a"_qs}},
        {"qr", {"\\qr a", u"[right]a"_qs}},
        {"qc", {"\\qc a", u"[centre]a"_qs}},
        {"li", {"\\li720 a", u"[li720]a"_qs}},
        {"lin", {"\\lin720 a", u"[li720]a"_qs}},
        {"fi", {"\\fi-360 a", u"[fi-360]a"_qs}},
        {"rtlpar", {"\\rtlpar a", u"[rtl]a"_qs}},
        {"ltrpar", {"\\rtlpar\\ltrpar a", u"a"_qs}},

        {"ansi", {"{\\rtf1\\mac\\ansi\\'e9}", u"\u00e9"_qs}},
        {"mac", {"{\\rtf1\\mac\\'8e}", u"\u00e9"_qs}},
        {"pc", {"{\\rtf1\\pc\\'82}", u"\u00e9"_qs}},
        {"pca", {"{\\rtf1\\pca\\'b5}", u"\u00c1"_qs}},
        {"ansicpg", {"\\ansicpg1251\\'e9", u"\u0439"_qs}},
        {"deff", {"\\deff1" FONTS "a", u"{'B':a}"_qs}},
        {"fonttbl", {FONTS "a", u"{'A':a}"_qs}},
        {"fcharset", {"{\\fonttbl{\\f0\\fcharset204 A;}}\\'e9", u"{'A':\u0439}"_qs}},
        {"cpg", {"{\\fonttbl{\\f0\\fcharset0\\cpg1251 A;}}\\'e9", u"{'A':\u0439}"_qs}},
        {"colortbl", {COLORS "\\cf1 a", u"{c=ff0000:a}"_qs}},
        {"red", {"{\\colortbl;\\red9;}\\cf1 a", u"{c=090000:a}"_qs}},
        {"green", {"{\\colortbl;\\green9;}\\cf1 a", u"{c=000900:a}"_qs}},
        {"blue", {"{\\colortbl;\\blue9;}\\cf1 a", u"{c=000009:a}"_qs}},
        {"stylesheet", {"{\\stylesheet{\\s1\\b\\qc H;}}\\s1 a", u"[centre]{b:a}"_qs}},
        {"s", {"{\\stylesheet{\\s1\\b\\qc H;}}\\s1 a", u"[centre]{b:a}"_qs}},
        {"cs", {"{\\stylesheet{\\*\\cs5\\i E;}}a{\\cs5 b}", u"a{i:b}"_qs}},
        {"ts", {"{\\stylesheet{\\s0\\b N;}{\\ts0\\i T;}}\\s0 a", u"{b:a}"_qs}},
        {"ds", {"{\\stylesheet{\\s0\\b N;}{\\ds0\\i S;}}\\s0 a", u"{b:a}"_qs}},
        {"sbasedon",
         {"{\\stylesheet{\\s2\\i\\sbasedon1 C;}{\\s1\\b\\fs30 H;}}\\s2 a", u"{b i 30:a}"_qs}},

        {"upr", {"{\\upr{old}{\\*\\ud new}}", u"new"_qs}},
        {"ud", {"{\\upr{old}{\\*\\ud new}}", u"new"_qs}},
        {"listtext", {"{\\listtext 1.\\tab}{\\pntext 1.\\tab}a", u"1.\ta"_qs}},
        {"pntext", {"{\\listtext 1.\\tab}{\\pntext 1.\\tab}a", u"1.\ta"_qs}},
        {"field",
         {"{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}}{\\field{\\*\\fldinst X}{\\fldrslt "
          "a}}",
          u"\u2022a"_qs}},
        {"fldinst", {"{\\field{\\fldinst PAGE}{\\fldrslt 7}}", u"7"_qs}},
        {"fldrslt",
         {"{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}{\\fldrslt ?}}a", u"\u2022a"_qs}},
    };
    return Samples;
}

/// Words that look alike in what they do: an underline of whatever kind, and destinations of which
/// nothing is shown.
const std::set<std::string>& underlines() {
    static const std::set<std::string> Words = {
        "ul",        "uld",        "uldash",    "uldashd",    "uldashdd", "uldb",
        "ulhair",    "ulhwave",    "ulldash",   "ulth",       "ulthd",    "ulthdash",
        "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw",      "ulwave"};
    return Words;
}

RtfReading sampleOf(const RtfControlWord& row) {
    const std::string word(row.word);
    const QByteArray bytes = QByteArray::fromStdString(word);
    if (const auto own = samplesWithOwnReading().find(word); own != samplesWithOwnReading().end()) {
        return own->second;
    }
    if (row.handler == &RtfInterpreter::character) {
        return {"a\\" + bytes + " b", u"a%1b"_qs.arg(QChar(row.value))};
    }
    if (underlines().contains(word)) {
        return {"\\" + bytes + " a\\" + bytes + "0 b", u"{u:a}b"_qs};
    }
    if (row.handler == &RtfInterpreter::skip) {
        return {"a{\\" + bytes + "1 lost{\\b lost}}b", u"ab"_qs};
    }
    return {};
}

/// The sample with the word replaced by one that no reader knows.
QByteArray without(const QByteArray& rtf, const QByteArray& word) {
    QByteArray changed;
    for (qsizetype at = 0; at < rtf.size();) {
        const qsizetype end = at + 1 + word.size();
        const bool isWord =
            rtf.sliced(at).startsWith("\\" + word) &&
            (end == rtf.size() || !std::isalpha(static_cast<unsigned char>(rtf.at(end))));
        changed += isWord ? QByteArray("\\unheardof") : QByteArray(1, rtf.at(at));
        at = isWord ? end : at + 1;
    }
    return changed;
}

TEST(RtfControlWords, EveryWordOfTheTableHasASampleInWhichItCounts) {
    ASSERT_GT(rtfControlWords().size(), 150u);
    for (const RtfControlWord& row : rtfControlWords()) {
        const QByteArray word(row.word.data(), static_cast<qsizetype>(row.word.size()));
        const RtfReading sample = sampleOf(row);
        ASSERT_FALSE(sample.rtf.isEmpty()) << "no sample for \\" << word.constData();
        EXPECT_EQ(describeRtf(sample.rtf).toStdString(), sample.reading.toStdString())
            << sample.rtf.constData();
        if (row.handler == &RtfInterpreter::enterObjectResult) {
            continue; // counts for what was left out, not for the text
        }
        EXPECT_NE(describeRtf(without(sample.rtf, word)), sample.reading)
            << "the sample reads the same without \\" << word.constData();
    }
}

TEST(RtfControlWords, AreFoundByTheirWholeNameOnly) {
    std::set<std::string_view> seen;
    for (const RtfControlWord& row : rtfControlWords()) {
        EXPECT_TRUE(seen.insert(row.word).second) << row.word << " stands twice in the table";
        EXPECT_EQ(findRtfControlWord(row.word), &row) << row.word;
    }
    for (const char* word : {"", "B", "PAR", "parx", "fonttb", "fonttbll", "unheardof"}) {
        EXPECT_EQ(findRtfControlWord(word), nullptr) << word;
    }
}

} // namespace
} // namespace velmora
