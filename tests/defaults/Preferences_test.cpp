#include "defaults/IniFile.h"
#include "defaults/Preferences.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

TEST(Preferences, AreAbsentWhereTheFileHasNoKey) {
    EXPECT_EQ(preferencesIn(IniFile("[General]\nother=1\nvexadelay=@Invalid()\n")), Preferences());
}

struct Stored {
    const char* text;
    double number;
    std::int64_t integer;
};

class WrongKind : public testing::TestWithParam<Stored> {};

TEST_P(WrongKind, IsTakenAsTheNumberItBeginsWith) {
    const QByteArray text = GetParam().text;
    const auto stored =
        preferencesIn(IniFile("vexadelay=" + text + "\nwindowwidth=" + text +
                              "\nvexadefaultrate=" + text + "\nvexapauseforreel=" + text + '\n'));
    EXPECT_EQ(stored.delayInSeconds, GetParam().number);
    EXPECT_EQ(stored.windowWidth, GetParam().integer);
    EXPECT_EQ(stored.defaultFrameRate, static_cast<std::uint64_t>(GetParam().integer));
    EXPECT_EQ(stored.pauseForReelChange, GetParam().number != 0);
}

INSTANTIATE_TEST_SUITE_P(
    Values, WrongKind,
    testing::Values(Stored{"7.9", 7.9, 7}, Stored{"-7.9", -7.9, -7}, Stored{"seven", 0, 0},
                    Stored{"", 0, 0}, Stored{"12 seconds", 12, 12}, Stored{"true", 1, 1},
                    Stored{"false", 0, 0}, Stored{"yes", 1, 1}, Stored{"nan", 0, 0},
                    Stored{"inf", 0, 0}, Stored{"1e300", 1e300, 0}, Stored{"-1", -1, -1},
                    Stored{"9007199254740993", 9007199254740992, 9007199254740993},
                    Stored{"18446744073709551615", 0x1p64, -1}, Stored{"0.5", 0.5, 0},
                    Stored{"\" 7 \"", 7, 7}, Stored{"1, 2", 1, 1}, Stored{"7,9", 7, 7},
                    Stored{",9", 0, 0}, Stored{"+5", 5, 5}, Stored{"+5.5 s", 5.5, 5},
                    Stored{"+-5", 0, 0}, Stored{"++5", 0, 0}, Stored{"+", 0, 0}));

TEST(Preferences, AChangeTouchesNoOtherKey) {
    IniFile file("vexadelay=9 s\nother=x\n[columnwidth]\nvexareel=1\nvexatitle=2\n");
    enter({.windowWidth = 800, .columnWidths = {{u"vexatitle"_s, 3}}}, file);
    EXPECT_EQ(file.text(), "[General]\nother=x\nvexadelay=9 s\nwindowwidth=800\n\n"
                           "[columnwidth]\nvexareel=1\nvexatitle=3\n");
}

TEST(Preferences, OfTwoChangesTheLaterPrevails) {
    Preferences change{.delayInSeconds = 1,
                       .windowWidth = 2,
                       .columnWidths = {{u"vexareel"_s, 3}, {u"vexatitle"_s, 4}}};
    append(change, {.windowWidth = 5, .windowHeight = 6, .columnWidths = {{u"vexatitle"_s, 7}}});
    EXPECT_EQ(change, (Preferences{.delayInSeconds = 1,
                                   .windowWidth = 5,
                                   .windowHeight = 6,
                                   .columnWidths = {{u"vexareel"_s, 3}, {u"vexatitle"_s, 7}}}));
}

} // namespace
