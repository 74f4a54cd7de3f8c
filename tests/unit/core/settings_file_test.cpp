#include "core/settings_file.h"

#include "core/list_items.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

namespace velmora {
namespace {

constexpr int FieldCount = 46;

class SettingsFileTest : public ::testing::Test {
protected:
    [[nodiscard]] QString folder() const { return m_folder.path() + u"/"_qs; }
    [[nodiscard]] QString damaged() const { return m_file.path() + u".damaged"_qs; }

    void write(const QByteArray& bytes) const { writeBytes(m_file.path(), bytes); }
    void write(const QStringList& lines) const {
        write(lines.join(u"\r\n"_qs).toLatin1() + "\r\n");
    }
    /// The lines of a first run's file; field N of the file is line N - 1.
    [[nodiscard]] QStringList firstRunLines() {
        EXPECT_TRUE(m_file.save(defaultSettings(folder(), 1080)));
        QStringList lines = QString::fromLatin1(bytesOf(m_file.path())).split(u"\r\n"_qs);
        lines.removeLast();
        return lines;
    }
    SettingsFile::LoadResult loadWith(int field, const QString& text) {
        QStringList lines = firstRunLines();
        lines[field - 1] = text;
        write(lines);
        return m_file.load(m_settings);
    }

    QTemporaryDir m_folder;
    SettingsFile m_file{folder(), 1080};
    Settings m_settings;
};

TEST_F(SettingsFileTest, FirstRunHasTheDefaultsAndWritesThemInTheFilesForm) {
    EXPECT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::FirstRun);
    EXPECT_EQ(m_settings.ArrowPosition, 493);
    EXPECT_EQ(m_settings.LastScriptFolder, folder() + u"Scripts/"_qs);
    ASSERT_TRUE(m_file.save(m_settings));
    const QString scripts = folder() + u"Scripts/"_qs;
    const QString text =
        u" 12 | 0 | 60 | 0 | 0 | 1 | 0 | 26 | 0 | 0 | 0 | 493 | 0 | 16777215 |Arial| "
        "26 |%1| 0 | 1 | 0 | 0 | 0 | 0 | 1 | 0 | 30 | 0 | 5 | 4 | 8 | 2 | 3 | 0 | 0 "
        "| 0 | 0 | 0 | 0 | 0 ||||||%1| 1 |"_qs.arg(scripts);
    EXPECT_EQ(QString::fromLatin1(bytesOf(m_file.path())), QString(text).replace(u'|', u"\r\n"_qs));
    EXPECT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Read);
    EXPECT_EQ(m_settings.ScriptsFolder, scripts);
    EXPECT_EQ(m_settings.CCResetCode, QString());
}

TEST_F(SettingsFileTest, KeepsEveryFieldOfARoundTrip) {
    // A number of its own in each line shows a field that stands in another's place.
    QStringList lines;
    for (int field = 1; field <= FieldCount; ++field) {
        lines.append(u" %1 "_qs.arg(field));
    }
    lines[1] = u" 1 "_qs;
    lines[17] = u" 7 "_qs;
    lines[18] = u" 10 "_qs;
    for (int shuttle = 27; shuttle < 32; ++shuttle) {
        lines[shuttle] = u" %1 "_qs.arg(shuttle - 26);
    }
    for (const int text : {14, 16, 39, 40, 41, 42, 43, 44}) {
        lines[text] = u"text %1"_qs.arg(text);
    }
    lines[2] = u" 60.5 "_qs;
    lines[45] = u" 1.2 "_qs;
    write(lines);
    const QByteArray before = bytesOf(m_file.path());
    ASSERT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Read);
    EXPECT_EQ(m_settings.ColumnMargin, 1);
    EXPECT_EQ(m_settings.ScrollSpeed, 60.5);
    EXPECT_EQ(m_settings.ShuttleButton5, 5);
    EXPECT_EQ(m_settings.CCFlow, 39);
    EXPECT_EQ(m_settings.Delay, 1.2);
    ASSERT_TRUE(m_file.save(m_settings));
    EXPECT_EQ(bytesOf(m_file.path()), before);
}

TEST_F(SettingsFileTest, NoTextShiftsTheFieldsBehindIt) {
    for (const char16_t* text :
         {u"/home/a, b/", u",", u"", u" two blanks in front", u"\"quoted\"", u"a\"b", u"a,\"b\",c",
          u"line\nend", u"\r", u"trailing ", u"Zürich – übergrößé", u"日本語/𝄞", u"Ã©", u"\"",
          u"\"\"", u"a,\""}) {
        Settings settings = defaultSettings(folder(), 1080);
        settings.LastScriptFolder = QString::fromUtf16(text);
        settings.CCStartCode = settings.LastScriptFolder;
        ASSERT_TRUE(m_file.save(settings));
        ASSERT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Read)
            << settings.LastScriptFolder.toStdString();
        EXPECT_EQ(m_settings.LastScriptFolder, settings.LastScriptFolder);
        EXPECT_EQ(m_settings.CCStartCode, settings.CCStartCode);
        EXPECT_EQ(m_settings.ScriptsFolder, settings.ScriptsFolder);
    }
}

TEST_F(SettingsFileTest, LimitsWhatAFileHoldsWrongly) {
    struct Case final {
        int field;
        const char16_t* text;
        double expected;
        std::function<double(const Settings&)> value;
    };
    const Case cases[] = {
        {46, u" .05 ", 1, [](const Settings& s) { return s.Delay; }},
        {46, u" 5 ", 5, [](const Settings& s) { return s.Delay; }},
        {46, u" 5.1 ", 1, [](const Settings& s) { return s.Delay; }},
        {8, u" 0 ", 1, [](const Settings& s) { return s.LineSpacingIndex; }},
        {8, u" 40 ", 36, [](const Settings& s) { return s.LineSpacingIndex; }},
        {30, u" 9 ", 8, [](const Settings& s) { return s.ShuttleButton3; }},
        {28, u"-1 ", 5, [](const Settings& s) { return s.ShuttleButton1; }},
        {28, u" 0 ", 0, [](const Settings& s) { return s.ShuttleButton1; }},
        {18, u" 11 ", 0, [](const Settings& s) { return s.ControllerButton1; }},
        {19, u" 10 ", 10, [](const Settings& s) { return s.ControllerButton2; }},
        {22, u" 1 ", 2, [](const Settings& s) { return s.RowStep; }},
        {5, u" 21 ", 1, [](const Settings& s) { return s.SpeedControllerInUse; }},
        {5, u" 10 ", 0, [](const Settings& s) { return s.SpeedControllerInUse; }},
        {7, u" 2 ", 2, [](const Settings& s) { return s.MirrorMode; }},
        {16, u" 3000 ", 200, [](const Settings& s) { return s.ScreenFontSize; }},
        {16, u"-1 ", 8, [](const Settings& s) { return s.ScreenFontSize; }},
        {13, u"-1 ", 0, [](const Settings& s) { return static_cast<int>(s.ScreenBackColor); }},
        {14, u" 1E300 ", 0xFFFFFF,
         [](const Settings& s) { return static_cast<int>(s.ScreenTextColor); }},
        {1, u" 12.5 ", 12, [](const Settings& s) { return s.ColumnMargin; }},
        {1, u" 13.5 ", 14, [](const Settings& s) { return s.ColumnMargin; }},
        {1, u"", 0, [](const Settings& s) { return s.ColumnMargin; }},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(loadWith(c.field, QString::fromUtf16(c.text)), SettingsFile::LoadResult::Read);
        EXPECT_EQ(c.value(m_settings), c.expected)
            << c.field << QString::fromUtf16(c.text).toStdString();
    }
    loadWith(15, QString());
    EXPECT_EQ(m_settings.ScreenFontName, u"Arial");
    loadWith(2, u" 2 "_qs);
    ASSERT_TRUE(m_file.save(m_settings));
    EXPECT_TRUE(bytesOf(m_file.path()).startsWith(" 12 \r\n 0 \r\n"));
}

TEST_F(SettingsFileTest, DamagedFileGivesDefaultsButKeepsTheCaptionFieldsRead) {
    QStringList lines = firstRunLines();
    lines[0] = u" 200 "_qs;
    lines[33] = u" 3 "_qs;
    lines[39] = u"start"_qs;
    lines.removeLast();
    write(lines);
    EXPECT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Damaged);
    EXPECT_EQ(m_settings.ColumnMargin, 12);
    EXPECT_EQ(m_settings.ScreenFontSize, 27);
    EXPECT_EQ(m_settings.CCPort, 3);
    EXPECT_EQ(m_settings.CCStartCode, u"start");
    EXPECT_EQ(m_settings.ScriptsFolder, folder() + u"Scripts/"_qs);
    EXPECT_EQ(m_settings.ShuttleButton1, 5);
}

TEST_F(SettingsFileTest, EveryKindOfDamageIsFoundAndNoneHangs) {
    EXPECT_EQ(loadWith(12, u"high"_qs), SettingsFile::LoadResult::Damaged);
    EXPECT_EQ(loadWith(12, u" 40000 "_qs), SettingsFile::LoadResult::Damaged);
    EXPECT_EQ(loadWith(4, u" 1E12 "_qs), SettingsFile::LoadResult::Damaged);
    // An unquoted comma shifts what follows: a folder's rest meets a number.
    EXPECT_EQ(loadWith(17, u"/home/a, b/"_qs), SettingsFile::LoadResult::Damaged);
    // A quote that is never closed swallows the rest.
    EXPECT_EQ(loadWith(17, u"\"/home"_qs), SettingsFile::LoadResult::Damaged);
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("\r\n"), QByteArray(5000, '\0'), QByteArray(5000, '"'),
          QByteArray("\xFF\xFE"), QByteArray(3 << 20, 'x')}) {
        write(bytes);
        EXPECT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Damaged);
    }
}

TEST_F(SettingsFileTest, ReadsOtherLineEndsAndAListOnOneLine) {
    const QStringList lines = firstRunLines();
    for (const char16_t* end : {u"\n", u"\r", u","}) {
        write(lines.join(QString::fromUtf16(end)).toLatin1());
        EXPECT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Read);
        EXPECT_EQ(m_settings.LineSpacingIndex, 26);
        EXPECT_EQ(m_settings.ScriptsFolder, folder() + u"Scripts/"_qs);
    }
}

TEST_F(SettingsFileTest, KeepsADamagedFileOnceBesideTheSavedOne) {
    write(QByteArray("not settings"));
    ASSERT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Damaged);
    EXPECT_FALSE(QFileInfo::exists(damaged()));
    ASSERT_TRUE(m_file.save(m_settings));
    EXPECT_EQ(bytesOf(damaged()), "not settings");
    // The second save must not take the good file for the damaged one.
    ASSERT_TRUE(m_file.save(m_settings));
    EXPECT_EQ(bytesOf(damaged()), "not settings");
    EXPECT_EQ(m_file.load(m_settings), SettingsFile::LoadResult::Read);
}

} // namespace
} // namespace velmora
