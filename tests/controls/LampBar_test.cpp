#include "controls/LampBar.h"
#include "controls/phase_look.h"

#include <QApplication>
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>

using namespace vexa;

namespace {

struct Case {
    Phase phase;
    std::optional<int> lit; ///< index of the lit lamp from the top, 0 to 2
};

std::ostream& operator<<(std::ostream& out, const Case& testCase) {
    return out << static_cast<int>(testCase.phase);
}

QColor lamp(LampBar& bar, int place) {
    return bar.grab().toImage().pixelColor(bar.width() / 2, bar.height() * (2 * place + 1) / 6);
}

class Lamps : public testing::TestWithParam<Case> {};

TEST_P(Lamps, TellTheStateByColourAndPlace) {
    LampBar bar;
    bar.resize(10, 90);
    const auto dark = lamp(bar, 0);
    bar.setPhase(GetParam().phase);
    for (int place = 0; place < 3; ++place)
        EXPECT_EQ(lamp(bar, place), place == GetParam().lit ? phaseColor(GetParam().phase) : dark)
            << place;
}

INSTANTIATE_TEST_SUITE_P(Phases, Lamps,
                         testing::Values(Case{Phase::stopped, {}}, Case{Phase::running, 2},
                                         Case{Phase::paused, 1}, Case{Phase::betweenItems, 1},
                                         Case{Phase::awaitingReel, 0}));

TEST(LampBar, BlinksBetweenItemsOnly) {
    LampBar bar;
    bar.resize(10, 90);
    bar.setPhase(Phase::betweenItems);
    const auto isLit = [&] { return lamp(bar, 1) == phaseColor(Phase::betweenItems); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isLit(); }));
    EXPECT_TRUE(QTest::qWaitFor(isLit));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isLit(); }));
    bar.setPhase(Phase::paused);
    EXPECT_TRUE(isLit()) << "from the beginning of the next state";
}

} // namespace
