#include "text/utf8_prefix.h"

#include <gtest/gtest.h>

namespace vexa {
namespace {

TEST(Utf8Prefix, KeepsWhatHasRoom) {
    EXPECT_EQ(utf8Prefix("reel", 4), "reel");
    EXPECT_EQ(utf8Prefix("reel", 3), "ree");
    EXPECT_EQ(utf8Prefix("", 0), "");
}

TEST(Utf8Prefix, CutsBetweenCharacters) {
    EXPECT_EQ(utf8Prefix("a\u00E9\u20AC", 6), "a\u00E9\u20AC");
    EXPECT_EQ(utf8Prefix("a\u00E9\u20AC", 5), "a\u00E9");
    EXPECT_EQ(utf8Prefix("a\u00E9\u20AC", 4), "a\u00E9");
    EXPECT_EQ(utf8Prefix("a\u00E9\u20AC", 2), "a");
    EXPECT_EQ(utf8Prefix("\u20AC", 2), "");
}

} // namespace
} // namespace vexa
