#include "ltc/ltc_reader.h"
#include "tape/TapeFolder.h"
#include "tape/render.h"
#include "timecode/frame_number.h"

#include <sndfile.h>

#include <cmath>
#include <memory>

using namespace vexa;
using namespace vexa::test;

namespace {

class Render : public TapeFolder {
protected:
    /// The words decoded by libltc, unfiltered.
    std::vector<ReadWord> wordsIn(const std::string& name, std::uint32_t sampleRate) const {
        return test::wordsIn(samplesOf(path(name)), sampleRate, frameRateForCode(rate::fps25));
    }

    static std::vector<ReadWord> wordsOf(const TapeRow& row) {
        std::vector<ReadWord> words;
        for (auto time = row.start; time != row.stop; time = advanced(time, 1, *row.rate))
            words.push_back({time, row.rate->dropFrame});
        return words;
    }

    std::uint64_t startTimeOf(const std::string& name) const {
        SF_INFO info{};
        const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> sound(
            sf_open(path(name).c_str(), SFM_READ, &info), sf_close);
        SF_BROADCAST_INFO broadcast{};
        sf_command(sound.get(), SFC_GET_BROADCAST_INFO, &broadcast, sizeof broadcast);
        return std::uint64_t{broadcast.time_reference_high} << 32 | broadcast.time_reference_low;
    }
};

TEST_F(Render, IsReadFrameByFrameAtEveryRateAndClock) {
    for (const std::uint32_t clock : {44100U, 48000U, 96000U})
        for (const auto& rate : frameRates)
            for (const auto& start : {Timecode{0, 0, 58, 7}, Timecode{23, 59, 57, 0}}) {
                const auto first = frameNumber(start, rate);
                const auto tape = row(start, timeOfFrame(first + 70, rate), rate.code);
                RenderOptions options;
                options.format.sampleRate = clock;
                options.existing = Existing::replace;
                renderTo("a.wav", {tape}, options);
                EXPECT_EQ(wordsIn("a.wav", clock), wordsOf(tape)) << clock << ' ' << rate.name;
            }
}

TEST_F(Render, AFileOfOneFrameIsRead) {
    const auto tape = row({1, 0, 0, 0}, {1, 0, 0, 1}, rate::fps25);
    renderTo("a.wav", {tape});
    EXPECT_EQ(wordsIn("a.wav", 48000), wordsOf(tape));
}

TEST_F(Render, BeginsWithTheFirstWordAndSaysWhen) {
    const struct {
        Timecode start;
        std::uint64_t rate;
        std::uint64_t samples;
    } cases[] = {
        {{0, 0, 0, 0}, rate::fps24, 0},
        {{1, 0, 0, 12}, rate::fps24, 3600 * 48000 + 24000},
        {{23, 59, 0, 0}, rate::fps25, 86340ULL * 48000},
        {{1, 0, 0, 0}, rate::fps30Drop, 172800000 - 173}, // 107892 frames of 1601.6
        {{0, 0, 0, 1}, rate::fps30Drop, 1602},            // 1601.6
        {{0, 0, 0, 4}, rate::fps30Drop, 6406},            // 6406.4
    };
    for (const auto& each : cases) {
        RenderOptions options;
        options.existing = Existing::replace;
        const auto& rate = frameRateForCode(each.rate);
        renderTo("a.wav", {row(each.start, advanced(each.start, 3, rate), each.rate)}, options);
        EXPECT_EQ(startTimeOf("a.wav"), each.samples) << timecodeText(each.start) << rate.name;
        const auto samples = samplesOf(path("a.wav"));
        // An edge of 4 samples begins with the first one and falls from the peak.
        EXPECT_NEAR(samples[0], 0.1259, 0.0001);
        EXPECT_NEAR(samples[5], -0.1259, 0.0001);
        EXPECT_EQ(samples.back(), 0);
    }
}

TEST_F(Render, PausesFromTheEndOfARowToTheNext) {
    const auto a = row({1, 0, 0, 0}, {1, 0, 1, 0}, rate::fps25);
    const auto b = row({2, 0, 0, 0}, {2, 0, 1, 0}, rate::fps25);
    RenderOptions options;
    options.pause = 0.75;
    renderTo("reel.wav", {a, b}, options);
    const auto tape = contentsOf("reel.wav");
    ASSERT_EQ(tape.stretches.size(), 2U);
    EXPECT_NEAR(tape.stretches[0].end, 48000, 3);
    EXPECT_NEAR(tape.stretches[1].begin, 1.75 * 48000, 3);
    auto expected = wordsOf(a);
    for (const auto& word : wordsOf(b))
        expected.push_back(word);
    EXPECT_EQ(wordsIn("reel.wav", 48000), expected);
}

TEST_F(Render, EveryWordOfARowIsReadAfterTheShortestPause) {
    RenderOptions options;
    options.existing = Existing::replace;
    for (const auto& before : frameRates)
        for (const auto& after : frameRates) {
            const auto a = row({1, 0, 0, 0}, {1, 0, 1, 0}, before.code);
            const auto b = row({2, 0, 0, 3}, {2, 0, 1, 0}, after.code);
            renderTo("reel.wav", {a, b}, options);
            auto expected = wordsOf(a);
            for (const auto& word : wordsOf(b))
                expected.push_back(word);
            EXPECT_EQ(wordsIn("reel.wav", 48000), expected) << before.name << ' ' << after.name;
        }
}

TEST_F(Render, TheSameRowGivesTheSameBytes) {
    const auto tape = row({1, 0, 0, 0}, {1, 0, 2, 0}, rate::fps30Drop);
    renderTo("a.wav", {tape});
    renderTo("b.wav", {tape});
    EXPECT_EQ(bytes(path("a.wav")), bytes(path("b.wav")));
}

TEST_F(Render, LeavesNothingWhenItIsBrokenOff) {
    const auto tape = row({1, 0, 0, 0}, {1, 0, 20, 0}, rate::fps25);
    double last = 0;
    const auto breakOff = [&](double part) {
        EXPECT_GT(part, last);
        last = part;
        if (part > 0.5)
            throw part;
    };
    EXPECT_THROW(render({"a.wav", {tape}}, path(), {}, breakOff), double);
    EXPECT_EQ(entries(), 0U);
}

TEST_F(Render, HasItsLevel) {
    for (const double level : {0.0, -18.0, -60.0}) {
        RenderOptions options;
        options.level = level;
        options.existing = Existing::replace;
        renderTo("a.wav", {row({1, 0, 0, 0}, {1, 0, 0, 5}, rate::fps25)}, options);
        float peak = 0;
        for (const float sample : samplesOf(path("a.wav")))
            peak = std::max(peak, std::abs(sample));
        EXPECT_NEAR(20 * std::log10(peak), level, 0.01);
    }
}

} // namespace
