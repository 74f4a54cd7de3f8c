#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_reader.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace velmora {
namespace {

class BoxFiles : public ::testing::Test {
protected:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const {
        return writeBytes(path(name), bytes);
    }

    RichTextBox box;

private:
    QTemporaryDir m_folder;
};

TEST_F(BoxFiles, PlainTextOfEveryKindLoadsAndComesBack) {
    struct Case {
        QByteArray bytes;
        QString text;
        QByteArray saved;
    };
    const Case cases[] = {
        {"", u""_qs, ""},
        {"a\nb\rc\r\nd", u"a\r\nb\r\nc\r\nd"_qs, "a\r\nb\r\nc\r\nd"},
        {"a\nb\nc\r\nd", u"a\r\nb\r\nc\r\nd"_qs, "a\nb\nc\nd"},
        {"a\rb\rc", u"a\r\nb\r\nc"_qs, "a\rb\rc"},
        {"\xE9t\xE9 \x80\x85", u"\u00E9t\u00E9 \u20AC\u2026"_qs, "\xE9t\xE9 \x80\x85"},
        {"\xC3\xA9", u"\u00E9"_qs, "\xC3\xA9"},
        // A sequence that breaks off is not UTF-8, and a mark alone is no text.
        {"ab\xC3", u"ab\u00C3"_qs, "ab\xC3"},
        {"\xEF\xBB\xBF", u""_qs, "\xEF\xBB\xBF"},
        {"\xEF\xBB\xBF\xD0\x96", u"\u0416"_qs, "\xEF\xBB\xBF\xD0\x96"},
        {QByteArray("\xFF\xFE\x16\x04\x0D\x00\x0A\x00", 8), u"\u0416\r\n"_qs,
         QByteArray("\xFF\xFE\x16\x04\x0D\x00\x0A\x00", 8)},
        {QByteArray("\xFE\xFF\x04\x16", 4), u"\u0416"_qs, QByteArray("\xFE\xFF\x04\x16", 4)},
        {QByteArray("\xEF\xBB\xBF"
                    "a\0b\x01\x1A\tc",
                    10),
         u"a b  \tc"_qs,
         "\xEF\xBB\xBF"
         "a b  \tc"},
        {"one\ftwo\x1Cthree", u"one\r\ntwo\r\nthree"_qs, "one\ntwo\nthree"},
    };
    for (const Case& c : cases) {
        const QString name = write(u"in.txt"_qs, c.bytes);
        ASSERT_TRUE(box.LoadFile(name, FileFormat::PlainText));
        EXPECT_EQ(box.Text(), c.text);
        const QString out = path(u"out.txt"_qs);
        TextForm form;
        ASSERT_TRUE(box.readFile(name, FileFormat::PlainText, {}, &form).outcome);
        ASSERT_TRUE(box.SaveFile(out, FileFormat::PlainText, form));
        EXPECT_EQ(bytesOf(out), c.saved);
        ASSERT_TRUE(box.LoadFile(out, FileFormat::PlainText));
        EXPECT_EQ(box.Text(), c.text);
    }
}

TEST_F(BoxFiles, WordsThatAnyControlCharacterPartsStayApart) {
    const QString out = path(u"out"_qs);
    for (int unit = 0; unit <= 0xA0; unit = unit == 0x1F ? 0x7F : unit + 1) {
        const QString text = u"page one%1page two"_qs.arg(QChar(unit));
        const QString bytes = write(u"in.txt"_qs, "\xEF\xBB\xBF" + text.toUtf8());
        for (const int way : {0, 1, 2}) {
            RichTextBox first;
            if (way == 0) {
                first.setText(text);
            } else if (way == 1) {
                first.setSelText(text);
            } else {
                ASSERT_TRUE(first.LoadFile(bytes, FileFormat::PlainText));
            }
            for (const FileFormat format : {FileFormat::Rtf, FileFormat::PlainText}) {
                ASSERT_TRUE(first.SaveFile(out, format));
                ASSERT_TRUE(box.LoadFile(out, format));
                EXPECT_EQ(box.Text().simplified(), u"page one page two"_qs)
                    << unit << ", way " << way;
                const QString expected = format == FileFormat::PlainText && unit == u'\v'
                                             ? u"page one\r\npage two"_qs
                                             : first.Text();
                EXPECT_EQ(box.Text(), expected) << unit << ", way " << way;
            }
        }
    }
}

TEST_F(BoxFiles, WhatWouldFillTheMemoryIsRefused) {
    struct Case {
        FileFormat format;
        QByteArray bytes;
        bool fits;
    };
    const Case cases[] = {
        {FileFormat::PlainText, QByteArray(300'000, '\n'), false},
        {FileFormat::PlainText, QByteArray("a line\n").repeated(100'000), true},
        {FileFormat::PlainText, QByteArray(5'000'000, 'a'), true},
        {FileFormat::Rtf, "{\\rtf1\\fs400 " + QByteArray(5'000'000, 'a') + "}", false},
        {FileFormat::Rtf, "{\\rtf1\\fs40 " + QByteArray(5'000'000, 'a') + "}", true},
        {FileFormat::Rtf, "{\\rtf1" + QByteArray("\\par").repeated(300'000) + "}", false},
        {FileFormat::Rtf, "{\\rtf1" + QByteArray("a line\\par ").repeated(100'000) + "}", true},
    };
    for (const Case& c : cases) {
        const QString name = write(u"long"_qs, c.bytes);
        const RtfReadResult read = box.readFile(name, c.format, {});
        EXPECT_EQ(static_cast<bool>(read.outcome), c.fits) << c.bytes.left(20).constData();
        EXPECT_EQ(read.fragment.paragraphs.empty(), !c.fits);
        EXPECT_EQ(read.outcome.reason().contains(u"MB of memory"_qs), !c.fits);
    }
}

} // namespace
} // namespace velmora
