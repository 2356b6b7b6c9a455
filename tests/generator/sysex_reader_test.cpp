#include "generator/hex_bytes.h"
#include "generator/sysex_reader.h"

#include <gmock/gmock.h>

using namespace vexa;
using testing::ElementsAre;

namespace {

/// The messages as text; a trailing "|" marks those cut off.
std::vector<std::string> textsIn(const std::string& hex) {
    std::vector<std::string> texts;
    for (const auto& message : messagesIn(hex))
        texts.push_back(hexText(message) + (message.complete ? "" : "|"));
    return texts;
}

TEST(SysExReader, FindsWholeMessages) {
    EXPECT_THAT(textsIn("F0 7D 42 01 00 00 00 05 F7"), ElementsAre("F0 7D 42 01 00 00 00 05 F7"));
    EXPECT_THAT(textsIn("F0 01 F7 F0 02 F7"), ElementsAre("F0 01 F7", "F0 02 F7"));
    EXPECT_THAT(textsIn("F0 F7"), ElementsAre("F0 F7"));
}

TEST(SysExReader, TakesRealTimeBytesOutOfAMessage) {
    EXPECT_THAT(textsIn("F8 F0 F8 01 FE 02 FF F7 FA"), ElementsAre("F0 01 02 F7"));
}

TEST(SysExReader, PassesOverEverythingElse) {
    EXPECT_THAT(textsIn("90 3C 40 3C 00 F7 42 F1 05 F0 01 F7 B0 07 7F"), ElementsAre("F0 01 F7"));
}

TEST(SysExReader, CutsAMessageOffAtAnyOtherStatusByte) {
    EXPECT_THAT(textsIn("F0 01 02 90 3C 40 F7"), ElementsAre("F0 01 02|"));
    EXPECT_THAT(textsIn("F0 01 F0 02 F7"), ElementsAre("F0 01|", "F0 02 F7"));
    EXPECT_THAT(textsIn("F0 F0 F7"), ElementsAre("F0|", "F0 F7"));
    EXPECT_THAT(textsIn("F0 01 80"), ElementsAre("F0 01|"));
}

TEST(SysExReader, CutsAMessageOffAtTheEndOfTheStream) {
    SysExReader reader;
    EXPECT_FALSE(reader.finish());
    reader.take(0xF0);
    EXPECT_EQ(hexText(reader.finish().value()), "F0");
    EXPECT_FALSE(reader.finish());
    EXPECT_FALSE(reader.take(0xF7));
}

TEST(SysExReader, KeepsTheBeginningOfALongMessageAndCountsTheRest) {
    SysExReader reader;
    reader.take(0xF0);
    for (int i = 0; i < 100000; ++i)
        ASSERT_FALSE(reader.take(0x11));
    const auto message = reader.take(0xF7).value();
    EXPECT_TRUE(message.complete);
    EXPECT_EQ(message.size, 100002u);
    std::string text = "F0";
    for (std::size_t i = 1; i < SysEx::kept; ++i)
        text += " 11";
    EXPECT_EQ(hexText(message), text + " ... (100002 bytes)");
}

/// A reader inside a message that is one byte short of the longest.
SysExReader readerOfALongMessage() {
    SysExReader reader;
    reader.take(0xF0);
    for (std::size_t size = 2; size < SysEx::longest; ++size)
        EXPECT_FALSE(reader.take(0x11));
    return reader;
}

TEST(SysExReader, CutsOffAMessageThatDoesNotEnd) {
    auto reader = readerOfALongMessage();
    const auto message = reader.take(0x11).value();
    EXPECT_FALSE(message.complete);
    EXPECT_EQ(message.size, SysEx::longest);
    for (std::size_t i = 0; i < 2 * SysEx::longest; ++i)
        ASSERT_FALSE(reader.take(0x11)) << "reported twice";
    EXPECT_FALSE(reader.take(0xF7));
    for (const auto byte : {0xF0, 0x01})
        reader.take(static_cast<std::uint8_t>(byte));
    EXPECT_TRUE(reader.take(0xF7)->complete);
}

TEST(SysExReader, TakesTheLongestMessageWhole) {
    const auto message = readerOfALongMessage().take(0xF7).value();
    EXPECT_TRUE(message.complete);
    EXPECT_EQ(message.size, SysEx::longest);
}

TEST(SysExReader, ShowsAllOfAMessageThatJustFits) {
    std::string text = "F0";
    for (std::size_t i = 2; i < SysEx::kept; ++i)
        text += " 7F";
    text += " F7";
    EXPECT_THAT(textsIn(text), ElementsAre(text));
}

} // namespace
