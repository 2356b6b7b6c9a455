#include "app/terminal_outlets.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vexa;
using namespace vexa::test;

namespace {

std::string shownInTheFirstSeconds(double pause) {
    ManualRunLoop runLoop;
    Countdown countdown(runLoop);
    testing::internal::CaptureStdout();
    countdown.start(pause);
    runLoop.advance(RunLoop::Seconds(1));
    return testing::internal::GetCapturedStdout();
}

TEST(Countdown, CountsTheSecondsDown) {
    EXPECT_EQ(shownInTheFirstSeconds(2), "next item in 2 s\nnext item in 1 s\n");
    EXPECT_EQ(shownInTheFirstSeconds(1.5), "next item in 2 s\nnext item in 1 s\n");
    EXPECT_EQ(shownInTheFirstSeconds(0), "");
    EXPECT_EQ(shownInTheFirstSeconds(-1), "");
    EXPECT_EQ(shownInTheFirstSeconds(std::nan("")), "");
}

TEST(Countdown, CountsFromTheLongestPauseThereIs) {
    for (const double pause : {1e9, 1e10, 1e308, HUGE_VAL})
        EXPECT_EQ(shownInTheFirstSeconds(pause),
                  "next item in 1000000000 s\nnext item in 999999999 s\n")
            << pause;
}

} // namespace
