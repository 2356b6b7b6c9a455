#include "timecode/sync_type.h"

#include <gtest/gtest.h>

using namespace vexa;

TEST(SyncType, NamesItsCodesAndTakesEveryOtherForMtc) {
    EXPECT_EQ(syncTypeName(0), "MTC");
    EXPECT_EQ(syncTypeName(1), "DTL");
    EXPECT_EQ(syncTypeName(2), "FSK");
    EXPECT_EQ(syncTypeName(3), "MTC");
    EXPECT_EQ(syncTypeName(UINT64_MAX), "MTC");
}
