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
    RescueCopy rescue{t.session, 20};
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return copy().contains("Two"); }));
    rescue.scriptIsSafe();
    rescue.keep();
    EXPECT_TRUE(copy().isNull()) << "saved";
    change(u"Three"_qs);
    rescue.keep();
    change(QString());
    rescue.keep();
    EXPECT_TRUE(copy().isNull()) << "empty";
    // Without a pause: no start of the timer behind the longest time puts it off any more.
    rescue.scriptIsSafe();
    change(u"Four"_qs);
    t.clock.advanceSeconds(RescueCopy::LongestSeconds + 1);
    const auto typing = [&] {
        change(u"Five"_qs);
        return copy().contains("Five");
    };
    EXPECT_TRUE(QTest::qWaitFor(typing));
}

TEST_F(RescueCopyTest, IsNotWrittenDuringAShowOrALoad) {
    change(u"One"_qs);
    t.session.show.ShowRunning = 1;
    QTest::qWait(100);
    EXPECT_TRUE(copy().isNull());
    t.session.show.ShowRunning = 0;
    t.session.script.fileInProgress = true;
    QTest::qWait(100);
    EXPECT_TRUE(copy().isNull());
    t.session.script.fileInProgress = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !copy().isNull(); }));
}

TEST_F(RescueCopyTest, OfAnEarlierSessionGoesAmongTheScriptsAndIsNeverOverwritten) {
    for (const QString& name : {u"Recovered Script.rtf"_qs, u"Recovered Script 2.rtf"_qs}) {
        change(u"Left behind: "_qs + name);
        rescue.keep();
        RescueCopy next(t.session);
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
    RescueCopy unattended(t.session);
    unattended.begin(unattended.recoveryPath());
    t.session.script.rtb1.setText(u"One"_qs);
    unattended.scriptChanged();
    unattended.keep();
    EXPECT_TRUE(copy().isNull());
}
