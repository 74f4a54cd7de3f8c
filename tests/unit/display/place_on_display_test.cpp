#include "display/place_on_display.h"

#include "platform/desktop/screens.h"

#include <gtest/gtest.h>

using namespace velmora;

TEST(DisplayPlace, HomeFollowsItsScreenWhereOneAloneHasTheName) {
    const QRect first(0, 0, 1920, 1080);
    const QRect second(1920, 0, 1920, 1080);
    DisplayPlace speaker{second, second, u"glass"_qs};
    speaker.follow({{u"glass"_qs, first}, {u"glass"_qs, second}});
    speaker.follow({{u"desk"_qs, first}});
    EXPECT_EQ(speaker.home, second);
    speaker.follow({{u"glass"_qs, first}});
    EXPECT_EQ(speaker.home, first);
}
