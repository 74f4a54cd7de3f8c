#include "app/exit_sequence.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace velmora {
namespace {

/// One way of leaving, and what becomes of it.
struct ExitCase final {
    const char* what;
    const char16_t* text;
    int TextChanged;
    /// 2 Cancel, 6 Yes, 7 No; 0: the question is not to be asked.
    int answer;
    bool saveSucceeds;
    bool leaves;
    /// In order.
    const char16_t* steps;
};

const ExitCase exitCases[] = {
    {"nothing to save", u"text", 0, 0, true, true, u"settings"},
    {"empty editor, though changed", u"", 1, 0, true, true, u"settings"},
    {"Yes, saved", u"text", 1, 6, true, true, u"ask settings save"},
    {"Yes, save cancelled or failed", u"text", 1, 6, false, false, u"ask settings save"},
    {"No", u"text", 1, 7, true, true, u"ask settings"},
    {"Cancel or the frame", u"text", 1, 2, true, false, u"ask"},
};

TEST(ExitSequence, AsksThenWritesTheSettingsThenSaves) {
    for (const ExitCase& row : exitCases) {
        SCOPED_TRACE(row.what);
        TestSession test;
        ScriptState& script = test.session.script;
        script.rtb1.setText(QString::fromUtf16(row.text));
        script.TextChanged = row.TextChanged;
        // The answer and the result of whatever was asked before.
        script.ExitAnswer = 2;
        script.SaveFailed = 1;
        QStringList steps;
        ExitSequence exit(test.session, test.host,
                          {[&] {
                               steps += u"ask"_qs;
                               EXPECT_EQ(script.ExitAnswer, 0);
                               script.ExitAnswer = row.answer;
                           },
                           [&] {
                               steps += u"settings"_qs;
                               return Outcome::success();
                           },
                           [&] {
                               steps += u"save"_qs;
                               EXPECT_EQ(script.ExitSaveInProgress, 1);
                               EXPECT_EQ(script.SaveFailed, 1);
                               script.SaveFailed = row.saveSucceeds ? 0 : 1;
                           }});
        EXPECT_EQ(exit.run(), row.leaves);
        EXPECT_EQ(steps.join(u' '), QString::fromUtf16(row.steps));
        EXPECT_EQ(script.ExitSaveInProgress, 0);
        EXPECT_EQ(test.host.focusGiven, row.leaves ? 0 : 1);
    }
}

TEST(ExitSequence, TellsThatTheSettingsCouldNotBeWrittenAndLeavesAllTheSame) {
    TestSession test;
    ExitSequence exit(test.session, test.host,
                      {[] {}, [] { return Outcome::failure(u"No space left."_qs); }, [] {}});
    EXPECT_TRUE(exit.run());
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    const FakeMessageBoxes::Box& box = test.messages.boxes.front();
    EXPECT_EQ(box.title, u"Could Not Save Settings"_qs);
    EXPECT_EQ(box.buttons, MessageButtons::Ok);
    EXPECT_TRUE(box.text.contains(test.path(u"velmora.ini"_qs)));
    EXPECT_TRUE(box.text.contains(u"No space left."_qs));
}

} // namespace
} // namespace velmora
