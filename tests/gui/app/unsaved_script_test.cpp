#include "main_window_fixture.h"
#include "setup/controller_choice.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTest>

namespace velmora {
namespace {

TEST_F(Form1Test, OnlyWhatIsInNoFileIsRescuedAndTheNextStartOffersIt) {
    load();
    const auto rescued = [&] {
        form->sessionEnds();
        return test.read(u"unsaved.rtf"_qs);
    };
    test.dialogs.choose(test.write(u"news.txt"_qs, "first"));
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(rescued().isNull()) << "only loaded";
    rtb1().setSelText(u"typed "_qs);
    EXPECT_TRUE(rescued().contains("typed "));
    // Neither a save that fails nor an append brings it into a file.
    QDir().mkpath(test.path(u"folder.txt"_qs));
    test.dialogs.choose(test.path(u"folder.txt"_qs), 1);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(test.messages.boxes.back().title, u"Could Not Save File"_qs);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - news.txt*"_qs);
    EXPECT_TRUE(test.read(u"unsaved.rtf"_qs).contains("typed ")) << "a failed save";
    test.messages.answers = {MessageAnswer::Yes};
    test.dialogs.choose(test.write(u"second.txt"_qs, "second"));
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(test.read(u"unsaved.rtf"_qs).contains("typed ")) << "an append";
    test.dialogs.choose(test.path(u"kept.txt"_qs), 1);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(test.read(u"unsaved.rtf"_qs).isNull()) << "saved";
    rtb1().setSelText(u"more "_qs);
    test.session.settings.ScrollSpeed = 99;
    test.session.settings.ControllerType = 21;
    test.pump.next([&] {
        EXPECT_TRUE(rescued().contains("more "));
        test.session.settings.ControllerType = 10;
    });
    Form3(test.session, nullptr).choose();
    EXPECT_EQ(savedSettings()[2].trimmed(), "99");
    SettingsFile(test.session.AppFolder, 1080).load(settings);
    EXPECT_EQ(settings.ControllerType, 21) << "while another one is asked for";

    for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        rtb1().setText(QString());
        test.write(u"unsaved.rtf"_qs, "{\\rtf1 left behind}");
        test.messages.answers = {answer};
        test.messages.whileOpen = [&] {
            EXPECT_FALSE(rescued().isNull()) << "asked again if the session ends here";
        };
        form.emplace(test.session);
        form->Form_Load();
        EXPECT_EQ(test.messages.boxes.back().title, u"Recovered Script"_qs);
        EXPECT_EQ(rtb1().Text(), answer == MessageAnswer::Yes ? u"left behind"_qs : QString());
        EXPECT_TRUE(rescued().isNull()) << "it is among the scripts";
    }
    EXPECT_TRUE(test.read(u"Scripts/Recovered Script 2.rtf"_qs).contains("left behind"));
}

TEST_F(Form1Test, BookmarksThatAShowAddsAreAChange) {
    settings.MirrorMode = 0;
    load();
    test.dialogs.choose(test.write(u"news.txt"_qs, "first"));
    press(Qt::Key_L, Qt::ControlModifier);
    test.dialogs.choose(test.path(u"news.txt"_qs), 1);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - news.txt"_qs);
    test.messages.answers = {MessageAnswer::Yes};
    test.pump.in(1, [&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->windowTitle() == u"Velmora Display"_qs) {
                QTest::keyClick(window->focusWidget(), Qt::Key_B);
                QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
            }
        }
    });
    press(Qt::Key_F1);
    EXPECT_EQ(rtb1().Text(), u"^first"_qs);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - news.txt*"_qs);
}

} // namespace
} // namespace velmora
