#include "interchange/formula_guard.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

TEST(FormulaGuard, StandsBeforeWhatASpreadsheetWouldCompute) {
    for (const auto& text : {u"=1+1"_s, u"+1"_s, u"-1"_s, u"@SUM(A1)"_s, u"\t=1"_s, u"\r=1"_s})
        EXPECT_EQ(withFormulaGuard(text), u"'"_s + text);
    for (const auto& text : {u""_s, u"Part one"_s, u"1+1"_s, u"'quoted'"_s, u" =1"_s})
        EXPECT_EQ(withFormulaGuard(text), text);
}

TEST(FormulaGuard, IsTakenAwayWithoutATrace) {
    for (const auto& text :
         {u"=1+1"_s, u"'=1+1"_s, u"''=1"_s, u"'"_s, u"''"_s, u"'quoted'"_s, u""_s, u"'-"_s})
        EXPECT_EQ(withoutFormulaGuard(withFormulaGuard(text)), text);
}

} // namespace
