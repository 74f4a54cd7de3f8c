// No word of a script is lost and none is doubled on the road from a file through the editor and a
// save to the file's next load.

#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "editor/script_saver.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "support/files.h"
#include "support/flat_text.h"
#include "support/random_text.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QFileInfo>

namespace velmora {
namespace {

QFileInfoList corpusFiles(const QString& folder) {
    return QDir(corpus().filePath(folder)).entryInfoList({u"*.rtf"_qs}, QDir::Files, QDir::Name);
}

/// A session that loads with nobody to ask.
class Road final {
public:
    Road() {
        applyEditorDefaults(m_test.session);
        // Narrow, so that words wrap and even break.
        m_test.session.script.rtb1.setWrapWidth(90);
    }
    bool load(const QByteArray& rtf) {
        rtb1().setText(QString());
        const QString path = m_test.write(u"in.rtf"_qs, rtf);
        return static_cast<bool>(
            ScriptLoader(m_test.session, m_test.host, nullptr).loadUnattended(path));
    }
    QByteArray save() {
        const QString name = u"out.rtf"_qs;
        EXPECT_TRUE(writeScriptTo(m_test.session, m_test.path(name)));
        return m_test.read(name);
    }
    [[nodiscard]] RichTextBox& rtb1() { return m_test.session.script.rtb1; }
    /// The display's lines, joined: a line end only where the text has one, of one position or two.
    [[nodiscard]] QString joinedLines() {
        const QString text = rtb1().Text();
        QString joined;
        int end = 0;
        for (const RichTextBox::LineMetrics& line : rtb1().lineMetrics(rtb1().lineCount())) {
            joined += QString((line.index - end + 1) / 2, u'\n');
            joined += QStringView(text).mid(line.index, line.length);
            end = line.index + line.length;
        }
        return joined;
    }

private:
    TestSession m_test;
};

QString inLineFeeds(QString text) {
    return text.replace(u"\r\n"_qs, u"\n"_qs);
}

QString words(const QString& text) {
    return wordsOf(text).join(u' ');
}

/// What the reader found in the file is what the editor holds, line by line, and what a save and
/// another load give; and a second save gives the bytes of the first.
void expectAllWordsKept(Road& road, const QByteArray& rtf) {
    const RtfReadResult read = readRtf(rtf);
    // A file without a byte is an empty script.
    ASSERT_EQ(road.load(rtf), rtf.isEmpty() || read.outcome);
    if (!read.outcome) {
        return;
    }
    const QString text = road.rtb1().Text();
    QString expected = plainText(read.fragment);
    expected.replace(u'\t', u' ').replace(QChar(QChar::LineSeparator), u'\v');
    EXPECT_EQ(difference(inLineFeeds(text), expected), "");
    EXPECT_EQ(difference(words(road.joinedLines()), words(text)), "");
    const QByteArray saved = road.save();
    ASSERT_TRUE(road.load(saved));
    EXPECT_EQ(difference(road.rtb1().Text(), text), "");
    EXPECT_TRUE(road.save() == saved);
}

TEST(Words, OfTheCorpusAreKept) {
    if (!corpus().exists()) {
        GTEST_SKIP() << "no corpus beside the sources";
    }
    const QFileInfoList files = corpusFiles(u"rtf"_qs) + corpusFiles(u"bad"_qs);
    ASSERT_FALSE(files.isEmpty());
    Road road;
    for (const QFileInfo& file : files) {
        SCOPED_TRACE(file.fileName().toStdString());
        expectAllWordsKept(road, bytesOf(file.filePath()));
    }
}

TEST(Words, OfGeneratedScriptsComeBackInOrder) {
    RandomTextParts parts;
    parts.pieces = {u"w%1 "_qs,      u"w%1 "_qs,  u"w%1  "_qs, u"w%1\t"_qs,
                    u"w%1\u2028"_qs, u"w%1, "_qs, u"w%1 ~"_qs, u"w%1é日𝄞 "_qs};
    parts.runsCutCharacters = false;
    RandomText random(5, parts);
    Road road;
    for (int round = 0; round < 8; ++round) {
        SCOPED_TRACE(round);
        const RichTextFragment script = random.fragment(1, 1 + round * 35, 16);
        ASSERT_NO_FATAL_FAILURE(expectAllWordsKept(road, writeRtf(script)));
        EXPECT_EQ(difference(words(road.rtb1().Text()), words(plainText(script))), "");
    }
}

} // namespace
} // namespace velmora
