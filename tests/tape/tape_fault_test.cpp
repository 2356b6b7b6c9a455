#include "tape/tape_fault.h"

#include <gmock/gmock.h>

using namespace vexa;
using testing::ElementsAre;

namespace {

Stretch stretch(const Timecode& first, const Timecode& last, double begin, double end,
                std::uint64_t code = rate::fps25) {
    Stretch stretch;
    stretch.first = first;
    stretch.last = last;
    stretch.rate = &frameRateForCode(code);
    stretch.begin = begin;
    stretch.end = end;
    return stretch;
}

std::vector<std::string> textsOf(const TapeContents& tape) {
    std::vector<std::string> texts;
    for (const auto& fault : faultsOf(std::span(&tape, 1), 0.0005))
        texts.push_back(text(fault));
    return texts;
}

TEST(TapeFault, StretchesFarApartHaveNothingToDoWithEachOther) {
    TapeContents tape;
    tape.stretches = {stretch({1, 0, 0, 0}, {1, 0, 9, 24}, 0, 480000),
                      stretch({5, 0, 0, 0}, {5, 0, 9, 24}, 530000, 1010000)};
    EXPECT_THAT(textsOf(tape), ElementsAre());
}

TEST(TapeFault, NamesWhereOneLeadsToTheNext) {
    TapeContents tape;
    tape.stretches = {stretch({23, 59, 50, 0}, {23, 59, 59, 23}, 0, 480000),
                      stretch({0, 0, 0, 1}, {0, 0, 9, 24}, 480100, 960100),
                      stretch({0, 0, 9, 24}, {0, 0, 19, 24}, 960100, 1440000),
                      stretch({0, 0, 20, 0}, {0, 0, 24, 24}, 1444800, 1684800),
                      stretch({0, 0, 25, 1}, {0, 0, 29, 24}, 1691520, 1924800),
                      stretch({0, 0, 30, 0}, {0, 0, 39, 29}, 1924800, 2404800, rate::fps30)};
    EXPECT_THAT(textsOf(tape),
                ElementsAre("2 frames missing, 23:59:59:24 to 00:00:00:00",
                            "back by 1 frame, to 00:00:09:24",
                            "stands still for 0.100 s before 00:00:20:00",
                            "stands still for 0.100 s before 00:00:25:01, without 1 frame",
                            "30 fps from 00:00:30:00 on"));
}

TEST(TapeFault, SpeedsOfShortStretchesAreNotKnownSoWell) {
    TapeContents tape;
    tape.stretches = {stretch({1, 0, 0, 0}, {1, 0, 9, 24}, 0, 480000)};
    tape.stretches[0].speed = -0.0006;
    EXPECT_THAT(textsOf(tape), ElementsAre("0.060 % too slow"));
    tape.stretches[0].end = 4800;
    EXPECT_THAT(textsOf(tape), ElementsAre());
}

TEST(TapeFault, IsToldAtItsPlace) {
    TapeContents tape;
    tape.stretches = {stretch({1, 0, 0, 0}, {1, 0, 9, 24}, 0, 480000)};
    tape.stretches[0].holes = {{9600, 5, 2}};
    const auto faults = faultsOf(std::span(&tape, 1), 0.0005);
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].place, 9600);
    EXPECT_EQ(text(faults[0]), "2 frames unread, 01:00:00:05 to 01:00:00:06");
}

} // namespace
