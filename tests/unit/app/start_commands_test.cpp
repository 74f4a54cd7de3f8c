#include "app/start_commands.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// What a show was started with.
struct Start final {
    int fromCursor;
    double position;

    bool operator==(const Start&) const = default;
};

class StartCommandsTest : public ::testing::Test {
protected:
    StartCommandsTest()
        : commands(test.session, test.host, [this] {
              starts.push_back(
                  {test.session.show.StartFromCursor, test.session.show.StartPosition});
              focusAtStart = test.host.focusGiven;
          }) {
        // Left over from an earlier show.
        test.session.show.StartFromCursor = 7;
        test.session.show.StartPosition = 77;
    }
    void writeLines(int count, int caretLine) {
        RichTextBox& rtb1 = test.session.script.rtb1;
        rtb1.setText(u"word\r\n"_qs.repeated(count));
        rtb1.setSelStart(rtb1.lineIndex(caretLine) + 2);
    }

    TestSession test;
    std::vector<Start> starts;
    int focusAtStart = 0;
    StartCommands commands;
};

TEST_F(StartCommandsTest, EachCommandHandsOverWhereTheShowBegins) {
    struct Row final {
        const char* what;
        int FirstDisplayLine;
        void (StartCommands::*command)();
        Start handedOver;
    };
    // The caret stands on line 3, two characters in: position 3 * 6 + 2.
    const Row rows[] = {
        {"button, first line", 0, &StartCommands::StartButton, {0, 20}},
        {"button, current line", 1, &StartCommands::StartButton, {1, 3}},
        {"F1 whatever the setting", 1, &StartCommands::fromBeginning, {0, 0}},
        {"F2 whatever the setting", 0, &StartCommands::fromCursor, {1, 3}},
    };
    for (const Row& row : rows) {
        starts.clear();
        writeLines(10, 3);
        test.session.settings.FirstDisplayLine = row.FirstDisplayLine;
        (commands.*row.command)();
        EXPECT_EQ(starts, std::vector<Start>{row.handedOver}) << row.what;
        EXPECT_GE(test.host.focusGiven, 1) << row.what;
    }
}

TEST_F(StartCommandsTest, AnEmptyScriptGivesTheEditorTheKeyboardAndStartsNothing) {
    for (const auto command :
         {&StartCommands::StartButton, &StartCommands::fromBeginning, &StartCommands::fromCursor}) {
        const int focusBefore = test.host.focusGiven;
        (commands.*command)();
        EXPECT_GT(test.host.focusGiven, focusBefore);
    }
    EXPECT_TRUE(starts.empty());
}

TEST_F(StartCommandsTest, AScriptClearedByAHandlerOfTheFirstPumpStartsNothing) {
    writeLines(3, 0);
    test.pump.next([this] { test.session.script.rtb1.setText(QString()); });
    commands.StartButton();
    EXPECT_TRUE(starts.empty());
}

} // namespace
} // namespace velmora
