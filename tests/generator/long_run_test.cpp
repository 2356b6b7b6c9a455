// The generator through midnight, in simulated time. VEXA_SOAK_HOURS sets the length of each run:
// 24 goes round the whole day.

#include "generator/generator.h"
#include "ltc/ltc_reader.h"
#include "timecode/frame_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

using namespace vexa;
using namespace vexa::test;

namespace {

constexpr std::uint32_t sampleRate = 48000;

double hours() {
    const auto* const wanted = std::getenv("VEXA_SOAK_HOURS");
    return wanted ? std::stod(wanted) : 1;
}

SysEx message(const Timecode& time, std::uint8_t last) {
    const auto byte = [](std::uint64_t value) { return static_cast<std::uint8_t>(value); };
    SysEx frame;
    frame.bytes = {0xF0,
                   0x7D,
                   0x42,
                   byte(time.hours),
                   byte(time.minutes),
                   byte(time.seconds),
                   byte(time.frames),
                   last,
                   0xF7};
    frame.size = 9;
    frame.complete = true;
    return frame;
}

/// Checks the output as it comes, so that memory does not grow with the run.
class LongRun : public testing::TestWithParam<FrameRate>, public MidiWriter {
protected:
    /// Renders a block, whose words must follow those before.
    void render() {
        generator.render(m_block, *this);
        m_rendered += m_block.size();
        for (const auto& word : m_reader.read(m_block)) {
            ASSERT_EQ(word, (ReadWord{timeOfFrame(first + words, rate), rate.dropFrame}));
            ++words;
        }
    }

    void write(std::uint64_t samples, std::span<const std::uint8_t> bytes) override {
        if (bytes.size() != 2)
            return; // the full frame of the setup
        const auto time = timeOfFrame(first + quarters / 8 * 2, rate);
        const auto expected = mtcQuarterFrame(time, rate, quarters % 8);
        EXPECT_EQ(std::vector(bytes.begin(), bytes.end()),
                  std::vector(expected.begin(), expected.end()));
        const auto parts = 4 * rate.frames; // in so many seconds
        EXPECT_EQ(m_rendered + samples,
                  leadIn + (quarters * sampleRate * rate.seconds + parts - 1) / parts);
        ++quarters;
    }

    const FrameRate rate = GetParam();
    const std::uint64_t frames =
        static_cast<std::uint64_t>(std::llround(hours() * 3600 / rate.frameInterval)) / 2 * 2;
    const std::uint64_t first = framesADay(rate) - frames / 2 / 2 * 2; // even, as MTC wants it
    const std::uint64_t leadIn = sampleRate / 2000;
    Generator generator{sampleRate, -18};
    std::uint64_t words = 0;
    std::uint64_t quarters = 0;

private:
    LtcReader m_reader{sampleRate, rate};
    std::vector<float> m_block = std::vector<float>(1024);
    std::uint64_t m_rendered = 0;
};

TEST_P(LongRun, EveryWordIsReadAndEveryQuarterFrameIsAtItsSample) {
    const auto time = timeOfFrame(first, rate);
    ASSERT_EQ(generator.take(message(time, rate.mtcMode), *this).reply, Reply::done);
    ASSERT_EQ(generator.take(message(time, 0x7F), *this).reply, Reply::done);
    while (words < frames && !HasFailure())
        render();
    EXPECT_GE(quarters, 4 * frames);
}

INSTANTIATE_TEST_SUITE_P(Rates, LongRun, testing::ValuesIn(frameRates));

} // namespace
