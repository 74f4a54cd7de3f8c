#include "random_show.h"

#include <gtest/gtest.h>

using namespace velmora;

TEST(RandomShow, WindowsAreAlwaysAPartOfTheTallPicture) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        const int modes[] = {mirror::OneDisplay, mirror::Mirrored, mirror::TwoDisplays};
        SCOPED_TRACE(seed);
        RandomShow show(RandomPlay{seed, modes[seed % 3], seed % 5 == 0});
        show.play(60);
        if (::testing::Test::HasFailure()) {
            return;
        }
    }
}

TEST(RandomShow, TwentyThousandActsInEachWindowHarmNothing) {
    constexpr int Shows = 20;
    constexpr int ActsOfAShow = 1000;
    constexpr int ActsInAMoment = 100;
    for (const int mode : {mirror::OneDisplay, mirror::Mirrored, mirror::TwoDisplays}) {
        for (const bool timed : {false, true}) {
            std::map<Moment, int> acts;
            int searches = 0;
            int questions = 0;
            for (unsigned seed = 1; seed <= Shows; ++seed) {
                SCOPED_TRACE(testing::Message()
                             << "mode " << mode << " timed " << timed << " seed " << seed);
                RandomShow show(RandomPlay{seed, mode, timed, 2, 40});
                show.play(ActsOfAShow);
                for (const auto& [moment, count] : show.actsIn) {
                    acts[moment] += count;
                }
                searches += show.searches;
                questions += show.questions;
                if (::testing::Test::HasFailure()) {
                    return;
                }
            }
            std::vector<Moment> moments = {Moment::Ready, Moment::Running, Moment::AtLimit};
            if (!timed) {
                moments.insert(moments.end(), {Moment::Still, Moment::Paused, Moment::Blank,
                                               Moment::FullScreen, Moment::Looping});
            }
            for (const Moment moment : moments) {
                EXPECT_GT(acts[moment], ActsInAMoment) << static_cast<int>(moment);
            }
            EXPECT_EQ(searches > 0, !timed);
            EXPECT_EQ(questions > 0, !timed && mode == mirror::Mirrored);
        }
    }
}

TEST(RandomShow, OddScriptsArePlayedLikeAnyOther) {
    const QString scripts[] = {u"^"_qs,
                               u"^~^^~\r\n~\r\n^"_qs,
                               u"^----\r\n^----\r\n^----"_qs,
                               u"A"_qs,
                               u"\r\n\r\n\r\n"_qs,
                               u"שלום ^לכולם, 123 מים.\r\nمرحبا ~بالعالم ABC"_qs.repeated(4),
                               u"No end of words. "_qs.repeated(6'000)};
    unsigned seed = 0;
    for (const QString& script : scripts) {
        for (const int mode : {mirror::OneDisplay, mirror::Mirrored, mirror::TwoDisplays}) {
            for (const bool timed : {false, true}) {
                SCOPED_TRACE(testing::Message() << "script " << script.left(20).toStdString()
                                                << " mode " << mode << " timed " << timed);
                RandomShow show(RandomPlay{++seed, mode, timed, 4, 10, script});
                show.play(40);
                EXPECT_EQ(show.t.session.script.rtb1.Text(), script);
                if (::testing::Test::HasFailure()) {
                    return;
                }
            }
        }
    }
}
