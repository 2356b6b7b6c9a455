#include "generator/frame.h"
#include "generator/hex_bytes.h"
#include "timecode/sync_type.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

Frame decoded(const std::string& hex) { return decodedFrame(messagesIn(hex).at(0)); }

struct SetupCase {
    const char* hex;
    SetupFrame setup;
    const char* mode;
};

class Setup : public testing::TestWithParam<SetupCase> {};

TEST_P(Setup, CarriesTimeRateAndSync) {
    const auto& [hex, setup, mode] = GetParam();
    EXPECT_EQ(decoded(hex), Frame(setup)) << hex;
    EXPECT_EQ(modeText(setup.mode), mode);
}

INSTANTIATE_TEST_SUITE_P(Modes, Setup,
                         testing::Values(SetupCase{"F0 7D 42 01 00 00 00 00 F7",
                                                   {{1, 0, 0, 0}, {sync::mtc, rate::fps24}},
                                                   "24 fps MTC"},
                                         SetupCase{"F0 7D 42 01 00 00 00 01 F7",
                                                   {{1, 0, 0, 0}, {sync::mtc, rate::fps25}},
                                                   "25 fps MTC"},
                                         SetupCase{"F0 7D 42 01 00 00 00 02 F7",
                                                   {{1, 0, 0, 0}, {sync::mtc, rate::fps30}},
                                                   "30 fps MTC"},
                                         SetupCase{"F0 7D 42 0A 00 00 00 03 F7",
                                                   {{10, 0, 0, 0}, {sync::mtc, rate::fps30Drop}},
                                                   "30 df MTC"},
                                         SetupCase{"F0 7D 42 00 00 00 00 04 F7",
                                                   {{0, 0, 0, 0}, {sync::dtl, rate::fps24}},
                                                   "24 fps DTL"},
                                         SetupCase{"F0 7D 42 01 00 00 00 05 F7",
                                                   {{1, 0, 0, 0}, {sync::dtl, rate::fps25}},
                                                   "25 fps DTL"},
                                         SetupCase{"F0 7D 42 17 3B 3B 1D 06 F7",
                                                   {{23, 59, 59, 29}, {sync::dtl, rate::fps30}},
                                                   "30 fps DTL"},
                                         SetupCase{"F0 7D 42 00 0A 00 00 07 F7",
                                                   {{0, 10, 0, 0}, {sync::dtl, rate::fps30Drop}},
                                                   "30 df DTL"},
                                         SetupCase{"F0 7D 42 00 3B 3B 1D 08 F7",
                                                   {{0, 59, 59, 29}, {sync::fsk, std::nullopt}},
                                                   "FSK, rate unknown"}));

TEST(Frame, StartCarriesTheTime) {
    EXPECT_EQ(decoded("F0 7D 42 01 00 00 00 7F F7"), Frame(StartFrame{{1, 0, 0, 0}}));
    EXPECT_EQ(decoded("F0 7D 42 00 00 00 00 7F F7"), Frame(StartFrame{}));
    EXPECT_EQ(decoded("F0 7D 42 00 01 00 00 7F F7"), Frame(StartFrame{{0, 1, 0, 0}}));
}

TEST(Frame, StopIsAllZero) { EXPECT_EQ(decoded("F0 7D 42 00 00 00 00 00 F7"), Frame(StopFrame{})); }

struct FaultCase {
    const char* hex;
    const char* reason;
};

class Malformed : public testing::TestWithParam<FaultCase> {};

TEST_P(Malformed, IsNamedForWhatIsWrong) {
    const auto message = messagesIn(GetParam().hex).at(0);
    const auto frame = decodedFrame(message);
    ASSERT_TRUE(std::holds_alternative<MalformedFrame>(frame)) << GetParam().hex;
    EXPECT_EQ(faultText(std::get<MalformedFrame>(frame).fault, message), GetParam().reason)
        << GetParam().hex;
}

INSTANTIATE_TEST_SUITE_P(
    Envelope, Malformed,
    testing::Values(FaultCase{"F0 F7", "2 bytes, not 9"},
                    FaultCase{"F0 7E 7F 06 01 F7", "manufacturer 7E, not 7D"},
                    FaultCase{"F0 7D F7", "3 bytes, not 9"},
                    FaultCase{"F0 7D 43 01 00 00 00 05 F7", "device 43, not 42"},
                    FaultCase{"F0", "cut off after byte 1"},
                    FaultCase{"F0 7D 42 01 00 00 00 05", "cut off after byte 8"},
                    FaultCase{"F0 7D 42 01 00 00 00 05 F0", "cut off after byte 8"},
                    FaultCase{"F0 7D 42 01 00 00 00 05 00 00", "cut off after byte 10"},
                    FaultCase{"F0 7D 42 01 00 00 00 F7", "8 bytes, not 9"},
                    FaultCase{"F0 7D 42 01 00 00 00 05 00 F7", "10 bytes, not 9"}));

INSTANTIATE_TEST_SUITE_P(
    Mode, Malformed,
    testing::Values(FaultCase{"F0 7D 42 01 00 00 00 09 F7", "unknown mode code 09"},
                    FaultCase{"F0 7D 42 00 00 00 00 7E F7", "unknown mode code 7E"}));

INSTANTIATE_TEST_SUITE_P(
    Time, Malformed,
    testing::Values(FaultCase{"F0 7D 42 18 00 00 00 05 F7", "hours 24 at 25 fps"},
                    FaultCase{"F0 7D 42 00 3C 00 00 00 F7", "minutes 60 at 24 fps"},
                    FaultCase{"F0 7D 42 00 00 3C 00 02 F7", "seconds 60 at 30 fps"},
                    FaultCase{"F0 7D 42 00 00 00 18 04 F7", "frames 24 at 24 fps"},
                    FaultCase{"F0 7D 42 00 00 00 19 05 F7", "frames 25 at 25 fps"},
                    FaultCase{"F0 7D 42 00 00 00 1E 06 F7", "frames 30 at 30 fps"},
                    FaultCase{"F0 7D 42 00 00 00 1E 07 F7", "frames 30 at 30 df"},
                    FaultCase{"F0 7D 42 00 00 00 1E 08 F7", "frames 30 at any rate"},
                    FaultCase{"F0 7D 42 00 00 00 1E 7F F7", "frames 30 at any rate"},
                    FaultCase{"F0 7D 42 7F 3C 7F 19 01 F7",
                              "hours 127, minutes 60, seconds 127, frames 25 at 25 fps"},
                    FaultCase{"F0 7D 42 00 01 00 00 03 F7", "dropped number 00:01:00:00 at 30 df"},
                    FaultCase{"F0 7D 42 01 3B 00 01 07 F7",
                              "dropped number 01:59:00:01 at 30 df"}));

} // namespace
