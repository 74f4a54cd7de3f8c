#include "platform/devices/pointer_widgets.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QTest>
#include <QWidget>

namespace velmora {
namespace {

TEST(WidgetPointer, ConfinesHidesAndMovesUntilItIsReleased) {
    WidgetPointer pointer;
    const auto isHidden = [](const QWidget& area) {
        return area.cursor().shape() == Qt::BlankCursor;
    };
    QWidget window;
    window.resize(400, 300);
    QWidget first(&window);
    QWidget second(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (QWidget* area : {&first, &second}) {
        pointer.confine(*area);
        pointer.hide(*area);
        EXPECT_EQ(QWidget::mouseGrabber(), area);
        EXPECT_TRUE(isHidden(*area));
    }
    EXPECT_FALSE(isHidden(first));
    for (const QPoint place : {QPoint(30, 40), QPoint(31, 40)}) {
        ASSERT_TRUE(pointer.moveTo(place));
        EXPECT_EQ(QCursor::pos(), place);
    }
    pointer.release();
    pointer.release();
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    EXPECT_FALSE(isHidden(second));
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
