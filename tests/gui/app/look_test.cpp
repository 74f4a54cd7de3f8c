#include "app/look.h"
#include "core/session.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QStyle>
#include <QTest>
#include <QToolTip>

using namespace velmora;

// A font of this name, in a script, once made the program read the file for its tooltip.
TEST(Look, NoTextOfLabelsAndTooltipsIsTakenForRichText) {
    applyLook(*qApp, ScreenState());
    const QString text = u"Not installed: <img src=/dev/null width=999>"_qs;
    QWidget window;
    QLabel label(text, &window);
    window.show();
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    QToolTip::showText(window.pos(), text, &window);
    const auto tips = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(tips, [](const QWidget* widget) {
        return widget->inherits("QTipLabel") && widget->isVisible();
    });
    ASSERT_NE(tip, tips.end());
    EXPECT_EQ(qobject_cast<QLabel*>(*tip)->textFormat(), Qt::PlainText);
    QToolTip::hideText();
}

TEST(Look, WhatTheHandTakesHoldOfGrowsWithTheScreen) {
    const QFont font = QApplication::font();
    const auto widthOfBars = [](int high) {
        ScreenState screen;
        screen.ScreenPixelsWide = high * 16 / 9;
        screen.ScreenPixelsHigh = high;
        applyLook(*qApp, screen);
        return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    };
    EXPECT_EQ(widthOfBars(720), widthOfBars(1080));
    EXPECT_EQ(widthOfBars(2160), 2 * widthOfBars(1080));
    QApplication::setFont(font);
}
