#include "platform/devices/pointer_widgets.h"
#include "support/fake_pointer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QTest>
#include <QWidget>

namespace velmora {
namespace {

/// How each of the two pointers shows what has been done to it.
struct Seen final {
    std::function<const QWidget*()> confinedTo;
    std::function<bool(const QWidget&)> isHidden;
    std::function<QPoint()> place;
};

void expectContract(Pointer& pointer, const Seen& seen) {
    QWidget window;
    window.resize(400, 300);
    QWidget first(&window);
    QWidget second(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(seen.confinedTo(), nullptr);
    pointer.confine(first);
    pointer.hide(first);
    EXPECT_EQ(seen.confinedTo(), &first);
    EXPECT_TRUE(seen.isHidden(first));
    pointer.confine(second);
    pointer.hide(second);
    EXPECT_EQ(seen.confinedTo(), &second);
    EXPECT_FALSE(seen.isHidden(first));
    for (const QPoint place : {QPoint(30, 40), QPoint(31, 40)}) {
        ASSERT_TRUE(pointer.moveTo(place));
        EXPECT_EQ(seen.place(), place);
    }
    pointer.release();
    pointer.release();
    EXPECT_EQ(seen.confinedTo(), nullptr);
    EXPECT_FALSE(seen.isHidden(second));
}

TEST(PointerContract, TheFakeRemembers) {
    FakePointer pointer;
    expectContract(pointer,
                   {[&pointer] { return pointer.confinedTo; },
                    [&pointer](const QWidget& area) { return pointer.hiddenOver == &area; },
                    [&pointer] { return pointer.place; }});
}

TEST(PointerContract, QtsPointerObeys) {
    WidgetPointer pointer;
    expectContract(pointer,
                   {[] { return QWidget::mouseGrabber(); },
                    [](const QWidget& area) { return area.cursor().shape() == Qt::BlankCursor; },
                    [] { return QCursor::pos(); }});
}

TEST(WidgetPointer, ADialogOverTheShowCanBeAnswered) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    WidgetPointer pointer;
    pointer.confine(window);
    {
        QWidget dialog(&window, Qt::Dialog);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
        EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    }
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
    EXPECT_EQ(QWidget::mouseGrabber(), &window);
}

TEST(WidgetPointer, AConfinementEndsWithItsWindowOrItsPointer) {
    WidgetPointer pointer;
    {
        QWidget passing;
        passing.show();
        pointer.confine(passing);
        pointer.hide(passing);
    }
    pointer.release();
    QWidget window;
    window.show();
    {
        WidgetPointer passing;
        passing.confine(window);
    }
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

} // namespace
} // namespace velmora
