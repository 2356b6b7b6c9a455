#include "interchange/ReelNumbers.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

TEST(ReelNumbers, AreWhatTheNamesEndWith) {
    const ReelNumbers numbers({u"001"_s, u"A012"_s, u"001"_s});
    EXPECT_EQ(numbers.of(u"001"_s), 1u);
    EXPECT_EQ(numbers.of(u"A012"_s), 12u);
}

TEST(ReelNumbers, AreFreeOnesForNamesWithoutOrWithATakenNumber) {
    const ReelNumbers numbers({u"AX"_s, u"TAPE1"_s, u"B1"_s, u"3"_s, u"BX"_s, u"AX"_s});
    EXPECT_EQ(numbers.of(u"TAPE1"_s), 1u);
    EXPECT_EQ(numbers.of(u"3"_s), 3u);
    EXPECT_EQ(numbers.of(u"AX"_s), 2u);
    EXPECT_EQ(numbers.of(u"B1"_s), 4u);
    EXPECT_EQ(numbers.of(u"BX"_s), 5u);
}

TEST(ReelNumbers, TakeANumberBeyondAnyForNone) {
    const ReelNumbers numbers({u"99999999999999999999"_s});
    EXPECT_EQ(numbers.of(u"99999999999999999999"_s), 1u);
}

} // namespace
