#include "app/terminal_outlets.h"
#include "support/ManualRunLoop.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <vector>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::int64_t> shownInTheFirstSeconds(double pause) {
    ManualRunLoop runLoop;
    std::vector<std::int64_t> shown;
    Countdown countdown(runLoop, [&shown](std::int64_t seconds) { shown.push_back(seconds); });
    countdown.start(pause);
    runLoop.advance(RunLoop::Seconds(1));
    return shown;
}

TEST(Countdown, CountsTheSecondsDown) {
    EXPECT_THAT(shownInTheFirstSeconds(2), ElementsAre(2, 1));
    EXPECT_THAT(shownInTheFirstSeconds(1.5), ElementsAre(2, 1));
    EXPECT_THAT(shownInTheFirstSeconds(0), IsEmpty());
    EXPECT_THAT(shownInTheFirstSeconds(-1), IsEmpty());
    EXPECT_THAT(shownInTheFirstSeconds(std::nan("")), IsEmpty());
}

TEST(Countdown, CountsFromTheLongestPauseThereIs) {
    for (const double pause : {1e9, 1e10, 1e308, HUGE_VAL})
        EXPECT_THAT(shownInTheFirstSeconds(pause), ElementsAre(1'000'000'000, 999'999'999))
            << pause;
}

} // namespace
