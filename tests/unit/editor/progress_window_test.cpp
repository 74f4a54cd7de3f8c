#include "editor/progress_window.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace velmora {
namespace {

TEST(Form31, IsPaintedInTheMiddleOfItsWindowWhenTheCallReturns) {
    QWidget window;
    window.setGeometry(50, 40, 400, 300);
    window.show();
    Form31 progress(&window);
    progress.showText(u"Loading File."_qs);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_TRUE(progress.isWindow());
    EXPECT_FALSE(progress.isModal());
    EXPECT_EQ(progress.findChild<QLabel*>()->text(), u"Loading File.");
    const QPoint off = progress.geometry().center() - window.geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    EXPECT_TRUE(window.rect().contains(progress.rect()));
}

} // namespace
} // namespace velmora
