#include "editor/rescue_copy.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QTest>

using namespace velmora;

namespace {

class RescueCopyTest : public ::testing::Test {
protected:
    void SetUp() override { EXPECT_EQ(rescue.recover(), QString()); }

    [[nodiscard]] QByteArray copy() const { return t.read(u"unsaved.rtf"_qs); }
    void change(const QString& text) {
        t.session.script.rtb1.setText(text);
        t.session.script.TextChanged = 1;
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
    t.session.script.TextChanged = 0;
    rescue.keep();
    EXPECT_TRUE(copy().isNull()) << "saved";
    change(u"Three"_qs);
    rescue.keep();
    change(QString());
    rescue.keep();
    EXPECT_TRUE(copy().isNull()) << "empty";
    change(u"Four"_qs);
    rescue.keep();
    rescue.discard();
    EXPECT_TRUE(copy().isNull()) << "given up";
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
        // The session may end again before the editor is ready.
        t.session.script.TextChanged = 0;
        next.keep();
        next.discard();
        EXPECT_EQ(next.recover(), t.session.settings.ScriptsFolder + name);
        EXPECT_TRUE(t.read(u"Scripts/"_qs + name).contains(name.toLatin1()));
        EXPECT_TRUE(copy().isNull());
        EXPECT_EQ(next.recover(), QString());
    }
}

TEST_F(RescueCopyTest, LeavesNothingBehindInAnUnattendedRun) {
    t.session.keepsFiles = false;
    RescueCopy unattended(t.session);
    EXPECT_EQ(unattended.recover(), QString());
    change(u"One"_qs);
    unattended.keep();
    EXPECT_TRUE(copy().isNull());
}
