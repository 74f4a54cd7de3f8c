#include "editor/rescue_copy.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace velmora;

namespace {

class RescueCopyTest : public ::testing::Test {
protected:
    void SetUp() override {
        EXPECT_EQ(rescue.recoveryPath(), QString());
        EXPECT_EQ(rescue.begin(QString()), QString());
    }

    [[nodiscard]] QByteArray copy() const { return t.read(u"unsaved.rtf"_qs); }
    void change(const QString& text) {
        t.session.script.rtb1.setText(text);
        rescue.scriptChanged();
    }

    TestSession t;
    RescueCopy rescue{t.session, t.host};
};

} // namespace

TEST_F(RescueCopyTest, HoldsWhatIsUnsavedAndNothingElse) {
    rescue.keep();
    EXPECT_TRUE(copy().isNull());
    change(u"One"_qs);
    rescue.keep();
    EXPECT_TRUE(copy().contains("One"));
    change(u"Two"_qs);
    EXPECT_TRUE(copy().contains("One")) << "not at every key";
    t.clock.advanceSeconds(RescueCopy::WaitSeconds);
    EXPECT_TRUE(QTest::qWaitFor([&] { return copy().contains("Two"); })) << "by the timer";
    EXPECT_EQ(QFile::permissions(t.path(u"unsaved.rtf"_qs)) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
    rescue.scriptIsSafe();
    rescue.keep();
    EXPECT_TRUE(copy().isNull()) << "saved";
    change(u"Three"_qs);
    rescue.keep();
    change(QString());
    rescue.keep();
    EXPECT_TRUE(copy().isNull()) << "empty";
}

// A key every 50 ms for a minute: a copy stands at most the wait behind what is typed.
TEST_F(RescueCopyTest, FollowsWhoeverTypesWithoutAPause) {
    constexpr int KeysPerWait = static_cast<int>(RescueCopy::WaitSeconds * 20);
    for (int key = 0; key < 1200; ++key) {
        change(u"key %1 "_qs.arg(key));
        t.clock.advanceSeconds(0.05);
        rescue.keepIfDue();
        if (key >= KeysPerWait) {
            const QByteArray text = copy();
            const auto at = text.indexOf("key ");
            EXPECT_GE(text.mid(at + 4, text.indexOf(' ', at + 4) - at - 4).toInt(),
                      key - KeysPerWait);
        }
    }
}

TEST_F(RescueCopyTest, IsNotWrittenDuringAShowOrALoadButRightAfterIt) {
    change(u"One"_qs);
    t.clock.advanceSeconds(10);
    t.session.show.ShowRunning = 1;
    rescue.keepIfDue();
    t.session.show.ShowRunning = 0;
    t.session.script.fileInProgress = true;
    rescue.keepIfDue();
    EXPECT_TRUE(copy().isNull());
    t.session.script.fileInProgress = false;
    rescue.keepIfDue();
    EXPECT_FALSE(copy().isNull());
}

TEST_F(RescueCopyTest, OneThatCannotBeWrittenIsToldOncePerMinuteAndTriedAgain) {
    QDir().mkpath(t.path(u"unsaved.rtf"_qs));
    change(u"One"_qs);
    for (int wait = 0; wait < 3; ++wait) {
        t.clock.advanceSeconds(RescueCopy::WaitSeconds);
        rescue.keepIfDue();
    }
    ASSERT_EQ(t.host.notices.size(), 1);
    EXPECT_TRUE(t.host.notices[0].contains(u"It is a folder."_qs));
    t.clock.advanceSeconds(60);
    rescue.keepIfDue();
    EXPECT_EQ(t.host.notices.size(), 2) << "the first one has gone";
    QDir().rmdir(t.path(u"unsaved.rtf"_qs));
    t.clock.advanceSeconds(RescueCopy::WaitSeconds);
    rescue.keepIfDue();
    EXPECT_TRUE(copy().contains("One"));
}

TEST_F(RescueCopyTest, OfAnEarlierSessionGoesAmongTheScriptsAndIsNeverOverwritten) {
    for (const QString& name : {u"Recovered Script.rtf"_qs, u"Recovered Script 2.rtf"_qs}) {
        change(u"Left behind: "_qs + name);
        rescue.keep();
        RescueCopy next(t.session, t.host);
        // The session may end again before the editor is ready, or while the user is asked.
        next.keep();
        next.scriptIsSafe();
        const QString recovered = next.recoveryPath();
        EXPECT_EQ(recovered, t.session.settings.ScriptsFolder + name);
        EXPECT_FALSE(copy().isNull());
        EXPECT_EQ(next.begin(recovered), recovered);
        EXPECT_TRUE(t.read(u"Scripts/"_qs + name).contains(name.toLatin1()));
        EXPECT_TRUE(copy().isNull());
        EXPECT_EQ(next.recoveryPath(), QString());
    }
}

TEST_F(RescueCopyTest, LeavesNothingBehindInAnUnattendedRun) {
    t.session.keepsFiles = false;
    RescueCopy unattended(t.session, t.host);
    unattended.begin(unattended.recoveryPath());
    t.session.script.rtb1.setText(u"One"_qs);
    unattended.scriptChanged();
    unattended.keep();
    EXPECT_TRUE(copy().isNull());
}
