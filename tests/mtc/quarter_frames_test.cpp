#include "mtc/quarter_frames.h"

#include <gtest/gtest.h>

#include <vector>

using namespace vexa;

namespace {

Timecode tc(const char* text) { return timecodeFromText(text).value(); }

/// A time assembled from its eight pieces, as in a receiver.
struct ReadTime {
    std::string time;
    unsigned rateBits;
    std::vector<std::uint64_t> samples; ///< of the pieces
};

ReadTime readTime(QuarterFrames& frames) {
    std::array<unsigned, mtcPieces> nibbles{};
    ReadTime read{};
    for (unsigned piece = 0; piece < mtcPieces; ++piece, frames.advance()) {
        const auto message = frames.message();
        EXPECT_EQ(message[0], 0xF1);
        EXPECT_EQ(message[1] >> 4, static_cast<int>(piece));
        nibbles[piece] = message[1] & 0xF;
        read.samples.push_back(frames.sample());
    }
    read.rateBits = nibbles[7] >> 1;
    read.time = timecodeText({(nibbles[7] & 1) << 4 | nibbles[6], nibbles[5] << 4 | nibbles[4],
                              nibbles[3] << 4 | nibbles[2], nibbles[1] << 4 | nibbles[0]});
    return read;
}

struct Case {
    const char* start;
    std::uint64_t rate;
    std::uint64_t firstFrame; ///< frame of the run that the first eight carry
    unsigned rateBits;
    std::vector<const char*> times;
};

class QuarterFramesOf : public testing::TestWithParam<Case> {};

TEST_P(QuarterFramesOf, TellEverySecondFrame) {
    constexpr std::uint32_t sampleRate = 44100;
    const auto& [start, rateCode, firstFrame, rateBits, times] = GetParam();
    const auto& frameRate = frameRateForCode(rateCode);
    QuarterFrames frames(tc(start), frameRate, sampleRate);
    std::uint64_t quarter = 4 * firstFrame;
    for (const auto* time : times) {
        const auto read = readTime(frames);
        EXPECT_EQ(read.time, time);
        EXPECT_EQ(read.rateBits, rateBits);
        for (const auto sample : read.samples) {
            const double due = static_cast<double>(quarter++ * sampleRate * frameRate.seconds) /
                               static_cast<double>(4 * frameRate.frames);
            EXPECT_GE(static_cast<double>(sample), due);
            EXPECT_LT(static_cast<double>(sample), due + 1);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Runs, QuarterFramesOf,
    testing::Values(
        Case{"00:59:59:20", rate::fps24, 0, 0, {"00:59:59:20", "00:59:59:22", "01:00:00:00"}},
        // A second of 25 frames turns even numbers into odd ones.
        Case{"23:59:59:22", rate::fps25, 0, 1, {"23:59:59:22", "23:59:59:24", "00:00:00:01"}},
        Case{"23:59:59:23", rate::fps25, 1, 1, {"23:59:59:24", "00:00:00:01", "00:00:00:03"}},
        Case{"00:00:59:27", rate::fps30, 1, 3, {"00:00:59:28", "00:01:00:00", "00:01:00:02"}},
        Case{"00:00:59:26", rate::fps30Drop, 0, 2, {"00:00:59:26", "00:00:59:28", "00:01:00:02"}},
        Case{"00:00:59:29", rate::fps30Drop, 1, 2, {"00:01:00:02", "00:01:00:04", "00:01:00:06"}},
        Case{"00:09:59:28", rate::fps30Drop, 0, 2, {"00:09:59:28", "00:10:00:00", "00:10:00:02"}}));

TEST(QuarterFrames, KeepTheirRateForAnHour) {
    // An hour of drop-frame skips 108 numbers and lasts 172799827.2 samples at 48 kHz.
    QuarterFrames frames({}, frameRateForCode(rate::fps30Drop), 48000);
    for (int i = 0; i < 4 * 107892; ++i)
        frames.advance();
    EXPECT_EQ(frames.sample(), 172799828u);
    EXPECT_EQ(readTime(frames).time, "01:00:00:00");
}

TEST(QuarterFrames, CanBeCountedInNanoseconds) {
    QuarterFrames frames({}, frameRateForCode(rate::fps25), 1'000'000'000);
    frames.advance();
    EXPECT_EQ(frames.sample(), 10'000'000u);
}

} // namespace
