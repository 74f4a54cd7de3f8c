#include "editor/progress_window.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>

namespace velmora {
namespace {

TEST(Form31, LongWorkMayBeCancelledByButtonEscapeAndClose) {
    for (int way = 0; way < 3; ++way) {
        QWidget window;
        window.show();
        Form31 progress(&window);
        progress.showText(u"Loading File."_qs);
        progress.close();
        EXPECT_TRUE(progress.isVisible());
        EXPECT_FALSE(progress.isCancelled());
        progress.showShare(0.4);
        EXPECT_TRUE(progress.isVisible());
        EXPECT_TRUE(progress.isModal());
        EXPECT_EQ(progress.findChild<QProgressBar*>()->value(), 40);
        auto* cancel = progress.findChild<QPushButton*>();
        if (way == 0) {
            cancel->click();
        } else if (way == 1) {
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QCoreApplication::sendEvent(cancel, &escape);
        } else {
            progress.close();
        }
        EXPECT_TRUE(progress.isCancelled()) << way;
        EXPECT_TRUE(progress.isVisible());
    }
}

} // namespace
} // namespace velmora
