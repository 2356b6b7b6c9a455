#include "tape/tape_file.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

TapeRow row(std::size_t number, std::uint64_t reel, const std::string& title) {
    TapeRow row;
    row.number = number;
    row.reel = reel;
    row.title = title;
    return row;
}

std::string nameFor(const std::string& title) {
    return filePerRow({row(1, 2, title)}).front().name;
}

TEST(TapeFile, IsNamedByRowReelAndTitle) {
    EXPECT_EQ(nameFor("Intro"), "01 Reel 2 - Intro.wav");
    EXPECT_EQ(nameFor(""), "01 Reel 2.wav");
    EXPECT_EQ(nameFor("Straße Ω"), "01 Reel 2 - Straße Ω.wav");
}

TEST(TapeFile, HasANameThatEveryFileSystemTakes) {
    EXPECT_EQ(nameFor("../a/b\\c:d*e?f\"g<h>i|j"), "01 Reel 2 - .._a_b_c_d_e_f_g_h_i_j.wav");
    EXPECT_EQ(nameFor("a\nb"), "01 Reel 2 - a_x0Ab.wav");
    EXPECT_EQ(nameFor(std::string("a\0b", 3)), "01 Reel 2 - a_x00b.wav");
    std::string longTitle;
    for (int i = 0; i < 200; ++i)
        longTitle += "\u20AC";
    const auto name = nameFor(longTitle);
    EXPECT_LE(name.size(), 255U);
    EXPECT_EQ(name.substr(name.size() - 7), "\u20AC.wav");
    const auto longest = filePerRow({row(~std::size_t{0}, ~std::uint64_t{0}, longTitle)});
    EXPECT_LE(longest.front().name.size(), 255U);
}

TEST(TapeFile, RowsOfTheSameTitleHaveFilesOfTheirOwn) {
    const auto files = filePerRow({row(9, 1, "a"), row(100, 1, "a")});
    EXPECT_EQ(files[0].name, "009 Reel 1 - a.wav");
    EXPECT_EQ(files[1].name, "100 Reel 1 - a.wav");
}

TEST(TapeFile, AReelHasItsRowsInTheOrderOfTheList) {
    const auto files = filePerReel({row(1, 2, "a"), row(2, 1, "b"), row(3, 2, "c")});
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].name, "Reel 2.wav");
    ASSERT_EQ(files[0].rows.size(), 2U);
    EXPECT_EQ(files[0].rows[1].title, "c");
    EXPECT_EQ(files[1].name, "Reel 1.wav");
}

TEST(TapeFile, UserBitsShowTheReelInDecimal) {
    EXPECT_EQ(reelUserBits(0), 0U);
    EXPECT_EQ(reelUserBits(12), 0x12U);
    EXPECT_EQ(reelUserBits(98765432), 0x98765432U);
    EXPECT_EQ(reelUserBits(1200000034), 0x34U);
}

} // namespace
