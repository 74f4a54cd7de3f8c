// No word of a script is lost and none is doubled on the road from a file through the editor and a
// save to the file's next load.

#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "editor/script_saver.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "support/flat_text.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <random>

namespace velmora {
namespace {

/// The folder of collected files beside the sources, if it is there.
QDir corpus() {
    const QDir sources(qEnvironmentVariable("VELMORA_SOURCE_DIR"));
    return QDir(sources.absoluteFilePath(QStringLiteral("../shared/corpus")));
}

QFileInfoList corpusFiles(const QString& folder) {
    return QDir(corpus().filePath(folder))
        .entryInfoList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name);
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        const QString path = m_test.write(QStringLiteral("in.rtf"), rtf);
        return static_cast<bool>(
            ScriptLoader(m_test.session, m_test.host, nullptr).loadUnattended(path));
    }
    QByteArray save() {
        const QString name = QStringLiteral("out.rtf");
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
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// Where two texts part, with what stands there; empty for the same text.
std::string difference(const QString& left, const QString& right) {
    const auto parted = std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first;
    const qsizetype at = parted - left.begin();
    if (left == right) {
        return {};
    }
    const auto around = [at](const QString& text) {
        return text.mid(std::max<qsizetype>(at - 20, 0), 60).toStdString();
    };
    return "at " + std::to_string(at) + ": [" + around(left) + "] and [" + around(right) + "]";
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
    QString expected = flatten(read.fragment).text.chopped(1);
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
    const QFileInfoList files =
        corpusFiles(QStringLiteral("rtf")) + corpusFiles(QStringLiteral("bad"));
    ASSERT_FALSE(files.isEmpty());
    Road road;
    for (const QFileInfo& file : files) {
        SCOPED_TRACE(file.fileName().toStdString());
        expectAllWordsKept(road, contents(file.filePath()));
    }
}

/// Damages bytes as transfers and other programs do: cuts, repeats, moves and changes stretches.
QByteArray mutated(QByteArray bytes, std::mt19937& random) {
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() %
                                      static_cast<unsigned>(std::max<qsizetype>(limit, 1)));
    };
    for (auto changes = 1 + below(6); changes > 0; --changes) {
        const qsizetype at = 8 + below(bytes.size() - 8);
        const qsizetype length = below(40);
        switch (below(4)) {
        case 0:
            bytes.remove(at, length);
            break;
        case 1:
            bytes.insert(at, bytes.mid(below(bytes.size()), length));
            break;
        case 2:
            if (at < bytes.size()) {
                bytes[at] = "\\{}\x80;'u0"[below(8)];
            }
            break;
        default:
            bytes.truncate(std::max<qsizetype>(bytes.size() - length, 8));
        }
    }
    return bytes;
}

TEST(Words, OfDamagedDocumentsAreKeptAsFarAsTheyCanBeRead) {
    if (!corpus().exists()) {
        GTEST_SKIP() << "no corpus beside the sources";
    }
    const QFileInfoList files = corpusFiles(QStringLiteral("rtf"));
    ASSERT_FALSE(files.isEmpty());
    std::mt19937 random(2);
    Road road;
    for (const QFileInfo& file : files) {
        const QByteArray bytes = contents(file.filePath());
        if (bytes.size() > 40'000) {
            continue;
        }
        for (int round = 0; round < 4; ++round) {
            SCOPED_TRACE(file.fileName().toStdString() + " round " + std::to_string(round));
            expectAllWordsKept(road, mutated(bytes, random));
        }
    }
}

/// Numbered words in random formats, paragraphs and lines.
RichTextFragment numberedWords(int count, std::mt19937& random) {
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    static constexpr const char16_t* separators[] = {u" ",      u" ",  u" ",  u"  ",   u"\t",
                                                     u"\u2028", u", ", u" ~", u"é日𝄞 "};
    RichTextFragment text;
    for (int i = 0; i < 12; ++i) {
        CharacterFormat format;
        format.fontName =
            i % 3 == 0 ? QStringLiteral("DejaVu Sans") : QStringLiteral("Liberation Sans");
        format.halfPoints = 20 + 4 * i;
        format.color = i % 2 == 0 ? Black : 0x0000FF;
        format.backColor = i % 5 == 0 ? 0x00FFFF : 0;
        format.bold = i % 4 == 0;
        text.formats.push_back(format);
    }
    text.paragraphs.emplace_back();
    for (int i = 0; i < count; ++i) {
        Paragraph& paragraph = text.paragraphs.back();
        const QString word =
            QStringLiteral("w%1").arg(i) + QString::fromUtf16(separators[below(9)]);
        paragraph.text += word;
        paragraph.runs.push_back({static_cast<int>(word.size()), below(12)});
        paragraph.endFormat = paragraph.runs.back().format;
        if (below(9) == 0) {
            paragraph.format.alignment = static_cast<Alignment>(below(3));
            text.paragraphs.emplace_back();
        }
    }
    return text;
}

TEST(Words, OfGeneratedScriptsComeBackInOrder) {
    std::mt19937 random(5);
    Road road;
    for (int round = 0; round < 8; ++round) {
        SCOPED_TRACE(round);
        const RichTextFragment script = numberedWords(1 + round * 150, random);
        const QByteArray rtf = writeRtf(script);
        ASSERT_NO_FATAL_FAILURE(expectAllWordsKept(road, rtf));
        QString expected = flatten(script).text;
        expected.replace(QChar(QChar::LineSeparator), u' ');
        EXPECT_EQ(difference(words(road.rtb1().Text()), words(expected)), "");
    }
}

} // namespace
} // namespace velmora
