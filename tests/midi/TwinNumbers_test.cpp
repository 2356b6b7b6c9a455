#include "midi/TwinNumbers.h"

#include <gmock/gmock.h>

using namespace vexa;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The resulting identities of ports, each given as "identity presence".
std::vector<std::string> numbered(TwinNumbers& numbers,
                                  const std::vector<std::pair<std::string, std::string>>& there) {
    std::vector<MidiPort> ports;
    for (const auto& [identity, presence] : there) {
        ports.emplace_back().identity = identity;
        ports.back().presence = presence;
    }
    numbers.number(ports);
    std::vector<std::string> identities;
    for (const auto& port : ports)
        identities.push_back(port.identity);
    return identities;
}

TEST(TwinNumbers, StartAtTheSecondPortOfAnIdentity) {
    TwinNumbers numbers;
    EXPECT_THAT(numbered(numbers, {{"x", "1"}, {"y", "2"}, {"x", "3"}, {"x", "4"}}),
                ElementsAre("x", "y", "x#2", "x#3"));
}

TEST(TwinNumbers, APortThatNeverHadATwinReturnsUnnumbered) {
    TwinNumbers numbers;
    EXPECT_THAT(numbered(numbers, {{"x", "1"}}), ElementsAre("x"));
    EXPECT_THAT(numbered(numbers, {}), IsEmpty());
    EXPECT_THAT(numbered(numbers, {{"x", "2"}}), ElementsAre("x"));
    EXPECT_THAT(numbered(numbers, {{"x", "3"}}), ElementsAre("x"));
}

TEST(TwinNumbers, StayWhenATwinGoes) {
    TwinNumbers numbers;
    numbered(numbers, {{"x", "1"}, {"x", "2"}});
    EXPECT_THAT(numbered(numbers, {{"x", "2"}}), ElementsAre("x#2"));
    EXPECT_THAT(numbered(numbers, {{"x", "2"}, {"x", "1"}}), ElementsAre("x#2", "x"));
}

TEST(TwinNumbers, AreNotReusedAfterAPortHasGone) {
    TwinNumbers numbers;
    numbered(numbers, {{"x", "1"}, {"x", "2"}});
    EXPECT_THAT(numbered(numbers, {{"x", "3"}, {"x", "2"}}), ElementsAre("x#3", "x#2"));
    EXPECT_THAT(numbered(numbers, {{"x", "4"}}), ElementsAre("x#4"));
}

/// Three twins come and go; the bits of each step tell which are present.
void expectNoneIsTakenForTheFirst(const std::vector<unsigned>& steps) {
    TwinNumbers numbers;
    std::vector<std::string> presences{"chosen", "b", {}};
    numbered(numbers, {{"x", presences[0]}, {"x", presences[1]}});
    unsigned before = 0b011;
    int arrivals = 0;
    for (const auto now : steps) {
        std::vector<std::pair<std::string, std::string>> there;
        for (std::size_t twin = 3; twin-- > 0;) {
            if (now & ~before & 1u << twin)
                presences[twin] = std::to_string(++arrivals);
            if (now & 1u << twin)
                there.emplace_back("x", presences[twin]);
        }
        before = now;
        const auto identities = numbered(numbers, there);
        for (std::size_t i = 0; i < there.size(); ++i)
            ASSERT_EQ(identities[i] == "x", there[i].second == "chosen");
    }
}

TEST(TwinNumbers, NeverConfuseATwinWithTheChosenPort) {
    constexpr unsigned ways = 8;
    for (unsigned order = 0; order < ways * ways * ways * ways; ++order) {
        SCOPED_TRACE(order);
        expectNoneIsTakenForTheFirst({order % ways, order / ways % ways, order / ways / ways % ways,
                                      order / ways / ways / ways});
    }
}

} // namespace
