#include "core/command_line.h"

#include "support/test_session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Action = CommandLine::Action;

class CommandLineTest : public ::testing::Test {
protected:
    CommandLineTest() { m_test.write(u"talk one.rtf"_qs, "{\\rtf1}"); }

    [[nodiscard]] CommandLine parse(const QStringList& arguments) const {
        return parseCommandLine(arguments, m_test.session.AppFolder);
    }
    /// Words parted at blanks.
    [[nodiscard]] CommandLine parseWords(const char* words) const {
        return parse(QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts));
    }

    TestSession m_test;
};

TEST_F(CommandLineTest, OpensTheEditorWithTheNamedScript) {
    EXPECT_EQ(parse({}).action, Action::OpenEditor);
    EXPECT_EQ(parse({u"  "_qs}).action, Action::OpenEditor);
    const CommandLine line = parse({u"talk one.rtf"_qs});
    EXPECT_EQ(line.action, Action::OpenEditor);
    EXPECT_EQ(line.script, m_test.path(u"talk one.rtf"_qs));
    // The window says what is wrong with them.
    for (const QString& name : {u"missing.rtf"_qs, u"."_qs}) {
        EXPECT_EQ(parse({name}).action, Action::OpenEditor);
        EXPECT_EQ(parse({name}).script, m_test.path(name));
    }
}

TEST_F(CommandLineTest, ReadsDisplayRectanglesFromTheirColumns) {
    const CommandLine::DisplayRectangles both = {0, 0, 1920, 1080, 1920, 0, 1280, 720};
    const QString columns = u"0000 0000 1920 1080 1920 0000 1280 0720"_qs;
    for (const CommandLine& line :
         {parse({columns}), parse(columns.split(u' ')), parseWords("0 0 1920 1080 1920 0 1280 720"),
          parse({u"0    0    1920 1080 1920    0 1280 720 "_qs})}) {
        ASSERT_TRUE(line.displays) << line.problem.toStdString();
        EXPECT_EQ(*line.displays, both);
    }
    const CommandLine::DisplayRectangles first = {-640, 5, 640, 0, 0, 0, 0, 0};
    EXPECT_EQ(parseWords("-640 5 640").displays.value_or(CommandLine::DisplayRectangles{}), first);
    TestSession other;
    applyDisplayRectangles(both, other.session.displays);
    EXPECT_EQ(other.session.displays.CmdDisplaysGiven, 1);
    EXPECT_EQ(other.session.displays.CmdDisplay2Height, 720);
}

TEST_F(CommandLineTest, UnderstandsTheUnattendedRuns) {
    EXPECT_EQ(parseWords("--help").action, Action::ShowHelp);
    EXPECT_EQ(parseWords("-h").action, Action::ShowHelp);
    EXPECT_EQ(parseWords("--version").action, Action::ShowVersion);
    const CommandLine convert = parseWords("--convert in.rtf /abs/out.txt");
    EXPECT_EQ(convert.action, Action::Convert);
    EXPECT_EQ(convert.convertFrom, m_test.path(u"in.rtf"_qs));
    EXPECT_EQ(convert.convertTo, u"/abs/out.txt");
    const CommandLine rehearse =
        parseWords("--rehearse a.rtf --speed 110.5 --for 30 --range full --turbo --screen 1366x768 "
                   "--margin 160 --mirror 0 --report r.json --picture p.png");
    ASSERT_EQ(rehearse.action, Action::Rehearse) << rehearse.problem.toStdString();
    const RehearsalArguments& r = rehearse.rehearsal;
    EXPECT_EQ(r.script, m_test.path(u"a.rtf"_qs));
    EXPECT_EQ(r.screen, QSize(1366, 768));
    EXPECT_EQ(r.forSeconds, 30);
    EXPECT_EQ(r.report, m_test.path(u"r.json"_qs));
    EXPECT_EQ(r.picture, m_test.path(u"p.png"_qs));
    for (const char* limits :
         {"--rehearse a.rtf --speed 119", "--rehearse a.rtf --speed 136 --for 5",
          "--rehearse a.rtf --speed 127 --range full"}) {
        EXPECT_EQ(parseWords(limits).action, Action::Rehearse) << limits;
    }
    TestSession other;
    applyRehearsal(r, other.session);
    EXPECT_EQ(other.session.settings.ScrollSpeed, 110.5);
    EXPECT_EQ(other.session.settings.ScrollSpeedControl, 1);
    EXPECT_EQ(other.session.settings.RowStep, 2);
    EXPECT_EQ(other.session.settings.ColumnMargin, 160);
}

TEST_F(CommandLineTest, RefusesEverythingElseAndNamesIt) {
    const std::pair<const char*, const char16_t*> cases[] = {
        {"--halp", u"--halp"},
        {"--speed 60", u"--rehearse"},
        {"--convert in.rtf", u"two files"},
        {"--rehearse", u"script"},
        {"--rehearse --turbo", u"script"},
        {"--rehearse a.rtf --speed", u"--speed"},
        {"--rehearse a.rtf --speed 137 --for 5", u"0 to 136"},
        {"--rehearse a.rtf --speed fast", u"0 to 136"},
        {"--rehearse a.rtf --speed 128 --range full --for 5", u"0 to 127"},
        {"--rehearse a.rtf --range full --speed 200", u"0 to 127"},
        {"--rehearse a.rtf --speed 130", u"--for"},
        {"--rehearse a.rtf --for 0", u"--for"},
        {"--rehearse a.rtf --range half", u"split"},
        {"--rehearse a.rtf --screen 1920", u"1920x1080"},
        {"--rehearse a.rtf --screen 10x10", u"320x240"},
        {"--rehearse a.rtf --margin 11", u"12 to 320"},
        {"--rehearse a.rtf --margin 12.5", u"12 to 320"},
        {"--rehearse a.rtf --mirror 2", u"0, 1 or 4"},
        {"--rehearse a.rtf --seconds 9", u"10 to 3599"},
        {"--rehearse a.rtf --report --turbo", u"file name"},
        {"--rehearse a.rtf --loud", u"--loud"},
        {"0 0 1920 1080 0 0 1920 1080 7", u"command line"},
        {"0 0 11920 1080", u"command line"},
        {"0 0 1920 108a", u"command line"},
    };
    for (const auto& [words, named] : cases) {
        const CommandLine line = parseWords(words);
        EXPECT_EQ(line.action, Action::Refuse) << words;
        EXPECT_TRUE(line.problem.contains(QStringView(named)))
            << words << ": " << line.problem.toStdString();
    }
}

} // namespace
} // namespace velmora
