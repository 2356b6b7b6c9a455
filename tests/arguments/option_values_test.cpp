#include "arguments/option_values.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

template<typename Read>
std::string refusalOf(Read read) {
    try {
        read();
    } catch (const Refusal& refusal) {
        return refusal.message.toStdString();
    }
    return "none";
}

TEST(OptionValues, TimesNeedTheirForm) {
    EXPECT_EQ(timeFrom(u"--start"_s, u"01:02:03:99"_s), (Timecode{1, 2, 3, 99}));
    EXPECT_EQ(refusalOf([] { timeFrom(u"--start"_s, u"1:2:3"_s); }),
              "--start: \"1:2:3\" is not a time of the form hh:mm:ss:ff");
}

TEST(OptionValues, CodesHaveTheNamesThatTheOperatorReads) {
    for (const auto* name : {"30 df", "30DF", " 30 Df"})
        EXPECT_EQ(rateCodeFrom(u"--rate"_s, QString::fromLatin1(name)), rate::fps30Drop);
    EXPECT_EQ(rateCodeFrom(u"--rate"_s, u"25"_s), rate::fps25);
    EXPECT_EQ(syncTypeCodeFrom(u"--type"_s, u"fsk"_s), sync::fsk);
    EXPECT_EQ(refusalOf([] { rateCodeFrom(u"--rate"_s, u"29"_s); }),
              "--rate takes 24 fps, 25 fps, 30 fps or 30 df, not \"29\"");
}

TEST(OptionValues, RowsAreCountedFromOne) {
    EXPECT_EQ(rowsFrom(u"--rows"_s, u"1,3-5,4"_s), (std::set<std::size_t>{0, 2, 3, 4}));
    EXPECT_EQ(refusalOf([] { rowsFrom(u"--rows"_s, u"0"_s); }),
              "--rows: \"0\" is not a list of rows such as 1,3-5");
}

} // namespace
