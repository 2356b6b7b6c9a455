#include "midi/device_messages.h"
#include "timecode/sync_type.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

PackedTimecode tc(const char* text) { return pack(timecodeFromText(text).value()); }

struct Setup {
    const char* start;
    std::uint64_t rate;
    std::uint64_t type;
    DeviceMessage message;
};

class SetupMessage : public testing::TestWithParam<Setup> {};

TEST_P(SetupMessage, CarriesTheTimeInPlainBinaryAndTheMode) {
    const auto& expected = GetParam();
    EXPECT_EQ(setupMessage(tc(expected.start), expected.rate, expected.type), expected.message);
}

INSTANTIATE_TEST_SUITE_P(
    Messages, SetupMessage,
    testing::Values(Setup{"01:00:00:00",
                          rate::fps25,
                          sync::dtl,
                          {0xF0, 0x7D, 0x42, 0x01, 0x00, 0x00, 0x00, 0x05, 0xF7}},
                    Setup{"00:59:59:29",
                          rate::fps30Drop,
                          sync::fsk,
                          {0xF0, 0x7D, 0x42, 0x00, 0x3B, 0x3B, 0x1D, 0x08, 0xF7}},
                    Setup{"10:00:00:00",
                          rate::fps30Drop,
                          sync::mtc,
                          {0xF0, 0x7D, 0x42, 0x0A, 0x00, 0x00, 0x00, 0x03, 0xF7}},
                    Setup{"23:59:59:29",
                          rate::fps30,
                          sync::mtc,
                          {0xF0, 0x7D, 0x42, 0x17, 0x3B, 0x3B, 0x1D, 0x02, 0xF7}}));

TEST(DeviceMessages, StartIsTheSameFrameWithCode7F) {
    EXPECT_EQ(startMessage(tc("01:02:03:04")),
              (DeviceMessage{0xF0, 0x7D, 0x42, 0x01, 0x02, 0x03, 0x04, 0x7F, 0xF7}));
}

TEST(DeviceMessages, StopIsConstant) {
    EXPECT_EQ(stopMessage(), (DeviceMessage{0xF0, 0x7D, 0x42, 0, 0, 0, 0, 0, 0xF7}));
}

TEST(DeviceMessages, TheModeCodeIsTheRatePlusFourPerType) {
    for (std::uint64_t rate = 0; rate < rate::count; ++rate) {
        EXPECT_EQ(modeCode(rate, sync::mtc), rate);
        EXPECT_EQ(modeCode(rate, sync::dtl), rate + 4);
        EXPECT_EQ(modeCode(rate, sync::fsk), 8);
        EXPECT_EQ(modeCode(rate, 3), rate) << "an unknown type is sent like MTC";
    }
}

} // namespace
