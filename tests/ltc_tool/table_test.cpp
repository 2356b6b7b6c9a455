#include "ltc_tool/table.h"

#include <gtest/gtest.h>

namespace vexa::ltc_tool {
namespace {

TEST(Table, HasColumnsAsWideAsTheirWidestCell) {
    EXPECT_EQ(tableText({{"Row", "Title", "End"}, {"1", "Straße", ""}, {"200", "", "x"}}),
              "Row  Title   End\n"
              "1    Straße\n"
              "200          x\n");
    EXPECT_EQ(tableText({}), "");
}

TEST(Table, IsFitForATerminal) { EXPECT_EQ(tableText({{"a\x1B[2Jb"}}), "a\\x1B[2Jb\n"); }

TEST(Table, CommaSeparatedValuesAreQuotedWhereTheyMust) {
    EXPECT_EQ(csvText({{"a", "b,c", "say \"hi\"", "two\nlines", ""}}),
              "a,\"b,c\",\"say \"\"hi\"\"\",\"two\nlines\",\n");
}

} // namespace
} // namespace vexa::ltc_tool
