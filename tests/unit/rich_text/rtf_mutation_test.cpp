#include "platform/rich_text/rtf_reader.h"
#include "support/flat_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora {
namespace {

/// A document with everything that a word processor puts around a text.
const QByteArray Rich =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\upr{\\fonttbl{\\f0 A;}}{\\*\\ud{\\fonttbl{\\f0\\fcharset0 "
    "Arial;}{\\f1\\fcharset128 Gothic;}{\\f2\\fcharset2 Symbol;}}}}{\\colortbl;\\red255\\green0"
    "\\blue0;}{\\stylesheet{\\s0 Normal;}{\\s1\\b\\sbasedon0 Head;}{\\*\\cs9\\i Em;}}{\\info{"
    "\\title No}}{\\*\\generator X;}\\pard\\s1 First {\\cs9 line} \\u8211\\'96 end\\par\n"
    "\\pard\\plain\\fs52\\cf1 Second\\line soft{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt "
    "link}}{\\pict\\pngblip 0102\\bin4 }{}\\}\\par{\\listtext\\f2\\'b7\\tab}item\\par\\trowd one"
    "\\cell two\\cell\\row\\pard {\\f1\\'82\\'b1\\'83e} \\u-10179?\\u-8251? {\\v hidden}"
    "{\\footnote note}last\\par}";

TEST(RtfMutation, ACutOffDocumentGivesTheTextUpToTheCut) {
    const QString whole = plainText(readRtf(Rich).fragment);
    ASSERT_TRUE(whole.startsWith(u"First line"_qs));
    for (qsizetype cut = 6; cut < Rich.size(); ++cut) {
        const RtfReadResult result = readRtf(Rich.first(cut));
        ASSERT_TRUE(result.outcome) << cut;
        // The last character may be half of what the file would have given: two units at most.
        const QString text = plainText(result.fragment);
        EXPECT_TRUE(whole.startsWith(text.chopped(std::min<qsizetype>(text.size(), 2))))
            << Rich.first(cut).constData() << "\n"
            << text.toStdString();
    }
}

} // namespace
} // namespace velmora
