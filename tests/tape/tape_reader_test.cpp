#include "ltc/ltc_reader.h"
#include "ltc/ltc_signal.h"
#include "tape/TapeFolder.h"
#include "tape/tape_error.h"
#include "tape/tape_reader.h"
#include "timecode/frame_number.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

using namespace vexa;
using namespace vexa::test;

namespace {

constexpr std::uint32_t sampleRate = 48000;

std::vector<float> timecode(const Timecode& first, std::size_t words, std::uint64_t code,
                            double level = -18, std::uint32_t clock = sampleRate) {
    const auto& rate = frameRateForCode(code);
    LtcSignal signal(clock, level);
    signal.start({first, rate, words});
    std::vector<float> samples((words + 1) * clock * rate.seconds / rate.frames + 200);
    signal.render(samples);
    return samples;
}

std::vector<Stretch> stretchesIn(std::span<const float> samples, std::uint32_t clock = sampleRate) {
    ChannelReader reader(clock);
    for (std::size_t done = 0; done < samples.size(); done += 1000)
        reader.read(samples.subspan(done, std::min<std::size_t>(1000, samples.size() - done)), 1);
    reader.finish();
    return reader.stretches();
}

/// Expects only the stretch of timecode({1, 0, 0, 0}, 100, fps25).
void expectWhole(std::span<const float> samples, const char* what) {
    const auto found = stretchesIn(samples);
    ASSERT_EQ(found.size(), 1U) << what;
    EXPECT_EQ(found[0].first, (Timecode{1, 0, 0, 0})) << what;
    EXPECT_EQ(found[0].last, (Timecode{1, 0, 3, 24})) << what;
    EXPECT_EQ(found[0].unread, 0U) << what;
    EXPECT_EQ(found[0].rate->code, rate::fps25) << what;
    EXPECT_NEAR(found[0].speed, 0, 1e-5) << what;
}

template<typename Change>
std::vector<float> changed(Change change) {
    auto samples = timecode({1, 0, 0, 0}, 100, rate::fps25);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<float>(change(samples[i], static_cast<double>(i)));
    return samples;
}

TEST(ChannelReader, ReadsEveryRateAtEveryClock) {
    for (const std::uint32_t clock : {16000U, 22050U, 44100U, 48000U, 96000U, 192000U})
        for (const auto& rate : frameRates) {
            const Timecode first{0, 0, 58, 5};
            const auto found = stretchesIn(timecode(first, 100, rate.code, -18, clock), clock);
            ASSERT_EQ(found.size(), 1U) << clock << ' ' << rate.name;
            EXPECT_EQ(found[0].first, first) << clock << ' ' << rate.name;
            EXPECT_EQ(found[0].last, timeOfFrame(frameNumber(first, rate) + 99, rate));
            EXPECT_EQ(found[0].rate->code, rate.code);
            EXPECT_NEAR(found[0].speed, 0, 1e-4);
        }
}

TEST(ChannelReader, ReadsWhatTapesDoToTimecode) {
    expectWhole(changed([](float x, double) { return x; }), "as it is");
    expectWhole(changed([](float x, double) { return -x; }), "inverted");
    expectWhole(changed([](float x, double) { return x * 0.0794; }), "at -40 dBFS");
    expectWhole(changed([](float x, double) { return x + 0.3; }), "with direct current");
    expectWhole(changed([](float x, double) { return std::clamp(x * 20, -1.F, 1.F); }),
                "overdriven");
    std::mt19937 random(1);
    std::normal_distribution noise(0.0, 0.0125);
    expectWhole(changed([&](float x, double) { return x + noise(random); }),
                "with white noise, 20 dB below");
}

TEST(ChannelReader, ReadsTapesThatRunFastOrSlow) {
    // Playing 10 % faster puts the samples closer together.
    for (const std::uint32_t clock : {43636U, 53333U}) {
        const auto found = stretchesIn(timecode({1, 0, 0, 0}, 100, rate::fps25, -18, clock));
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].frames, 100U);
        EXPECT_NEAR(found[0].speed, 48000.0 / clock - 1, 1e-4);
    }
}

TEST(ChannelReader, ReadsTheFirstWordOfARecordingThatBeginsWithIt) {
    for (const float sign : {1.F, -1.F})
        for (std::uint64_t frame = 0; frame < 25; ++frame) {
            auto samples = timecode({1, 0, 0, frame}, 50, rate::fps25);
            samples.erase(samples.begin(), samples.begin() + 24);
            for (float& sample : samples)
                sample *= sign;
            const auto found = stretchesIn(samples);
            ASSERT_EQ(found.size(), 1U);
            EXPECT_EQ(found[0].frames, 50U) << frame << ' ' << sign;
        }
}

TEST(ChannelReader, ReadsTheFirstWordAtEveryRateAndClock) {
    for (const std::uint32_t clock : {44100U, 48000U, 96000U})
        for (const auto& rate : frameRates)
            for (std::uint64_t frame = 0; frame < 24; ++frame) {
                auto samples = timecode({1, 0, 0, frame}, 50, rate.code, -18, clock);
                samples.erase(samples.begin(), samples.begin() + clock / 2000);
                const auto found = stretchesIn(samples, clock);
                ASSERT_EQ(found.size(), 1U);
                EXPECT_EQ(found[0].frames, 50U) << clock << ' ' << rate.name << ' ' << frame;
            }
}

TEST(ChannelReader, ReadsTheFirstWordOfARecordingThatBeginsWithItsRise) {
    for (const float sign : {1.F, -1.F})
        for (std::uint64_t frame = 0; frame < 25; ++frame) {
            auto samples = timecode({1, 0, 0, frame}, 50, rate::fps25);
            samples.erase(samples.begin(), samples.begin() + 24);
            // The level before the first edge is not there: it rises, or falls, from zero.
            std::fill_n(samples.begin(), 2, 0.F);
            for (float& sample : samples)
                sample *= sign;
            const auto found = stretchesIn(samples);
            ASSERT_EQ(found.size(), 1U);
            EXPECT_EQ(found[0].frames, 50U) << frame << ' ' << sign;
        }
}

TEST(ChannelReader, BeginsInMidWord) {
    const auto samples = timecode({1, 0, 0, 0}, 100, rate::fps25);
    for (const std::size_t cut : {300U, 1000U, 1900U}) {
        const auto found = stretchesIn(std::span(samples).subspan(cut));
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].first, (Timecode{1, 0, 0, 1}));
    }
}

TEST(ChannelReader, NamesTheFramesThatADropOutTakes) {
    auto samples = timecode({1, 0, 0, 0}, 100, rate::fps25);
    std::fill_n(samples.begin() + 24 + 50 * 1920 + 700, 240, 0.F); // 5 ms of frame 50
    const auto found = stretchesIn(samples);
    ASSERT_EQ(found.size(), 1U);
    ASSERT_EQ(found[0].holes.size(), 1U);
    EXPECT_EQ(found[0].holes[0].firstFrame, 50U);
    EXPECT_EQ(found[0].holes[0].frames, 1U);
    EXPECT_NEAR(found[0].holes[0].begin, 24 + 50 * 1920, 5);
}

TEST(ChannelReader, TellsTheLevel) {
    for (const double level : {0.0, -18.0, -40.0}) {
        const auto found = stretchesIn(timecode({1, 0, 0, 0}, 100, rate::fps25, level));
        ASSERT_EQ(found.size(), 1U);
        EXPECT_NEAR(20 * std::log10(found[0].peak), level, 0.1);
    }
}

TEST(ChannelReader, ReadsThroughHum) {
    for (std::size_t before = 0; before < 960; before += 101) {
        std::vector<float> samples(sampleRate + before);
        const auto code = timecode({1, 0, 0, 0}, 50, rate::fps25);
        samples.insert(samples.end(), code.begin(), code.end());
        for (std::size_t i = 0; i < samples.size(); ++i) // 50 Hz, 6 dB below
            samples[i] += 0.063F * std::sin(static_cast<float>(i % 960) * 0.0065450F);
        const auto found = stretchesIn(samples);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].frames, 50U) << before;
    }
}

TEST(ChannelReader, ReadsTheFirstWordAfterNoise) {
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0, 0.004F); // of which peaks are some 18 dB below
    for (std::uint64_t frames = 0; frames < 20; ++frames) {
        std::vector<float> samples(sampleRate + frames * 97);
        const auto code = timecode({1, 0, 0, frames}, 50, rate::fps25);
        samples.insert(samples.end(), code.begin(), code.end());
        for (float& sample : samples)
            sample += noise(random);
        const auto found = stretchesIn(samples);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].frames, 50U) << frames;
    }
}

TEST(ChannelReader, FindsNothingInSilenceAndNoise) {
    EXPECT_TRUE(stretchesIn(std::vector<float>(10 * sampleRate)).empty());
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0, 0.1F);
    std::vector<float> samples(60 * sampleRate);
    std::ranges::generate(samples, [&] { return noise(random); });
    EXPECT_TRUE(stretchesIn(samples).empty());
    // Without peaks, noise has the power of timecode, and reaches the decoder.
    std::uniform_real_distribution<float> even(-0.1F, 0.1F);
    std::ranges::generate(samples, [&] { return even(random); });
    EXPECT_TRUE(stretchesIn(samples).empty());
}

/// Each octave has the same power. The effective value is 1.
std::vector<float> pinkNoise(std::size_t samples) {
    constexpr std::size_t octaves = 12;
    std::mt19937 random(1);
    std::normal_distribution<float> white(0, std::sqrt(1.F / octaves));
    std::array<float, octaves> values{};
    std::vector<float> noise(samples);
    for (std::size_t i = 0; i < samples; ++i)
        for (std::size_t octave = 0; octave < octaves; ++octave) {
            if (i % (std::size_t{1} << octave) == 0)
                values[octave] = white(random);
            noise[i] += values[octave];
        }
    return noise;
}

std::size_t framesRead(std::span<const float> samples) {
    std::size_t frames = 0;
    for (const auto& stretch : stretchesIn(samples))
        frames += stretch.frames - stretch.unread;
    return frames;
}

TEST(ChannelReader, ReadsNoFewerWordsInNoiseThanTheDecoderAlone) {
    const auto clean = timecode({1, 0, 0, 0}, 500, rate::fps25);
    const auto noise = pinkNoise(clean.size());
    for (int level = -36; level <= -15; ++level) {
        const float factor = std::pow(10.F, static_cast<float>(level) / 20);
        auto samples = clean;
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] += factor * noise[i];
        const auto words = wordsIn(samples, sampleRate, frameRateForCode(rate::fps25));
        const auto alone = std::ranges::count_if(words, [](const ReadWord& word) {
            return word.time.hours == 1 && word.time.minutes == 0 && word.time.seconds < 20;
        });
        const auto read = framesRead(samples);
        // Which words noise takes is chance. The decoder's words without a neighbour, of which most
        // are wrong, count as noise.
        EXPECT_GE(read + 1, static_cast<std::size_t>(alone)) << level << " dBFS";
        EXPECT_TRUE(read == 500 || level > -31) << read << " at " << level << " dBFS";
    }
}

TEST(ChannelReader, BearsSamplesThatAreNoNumbers) {
    auto samples = timecode({1, 0, 0, 0}, 100, rate::fps25);
    samples[100] = std::numeric_limits<float>::quiet_NaN();
    samples[101] = std::numeric_limits<float>::infinity();
    samples[102] = -std::numeric_limits<float>::max();
    const auto found = stretchesIn(samples);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].last, (Timecode{1, 0, 3, 24}));
}

TEST(ChannelReader, DoesNotDependOnTheSizeOfBlocks) {
    const auto samples = timecode({1, 0, 0, 0}, 100, rate::fps25);
    ChannelReader reader(sampleRate);
    for (const float& sample : samples)
        reader.read({&sample, 1}, 1);
    reader.finish();
    ASSERT_EQ(reader.stretches().size(), 1U);
    EXPECT_EQ(reader.framesRead(), 100U);
    EXPECT_EQ(reader.stretches()[0].begin, stretchesIn(samples)[0].begin);
}

class ContentsOf : public TapeFolder {
protected:
    /// Writes timecode on the right of two channels, and a tone on the left.
    void writeStereo() const {
        const auto right = timecode({1, 0, 0, 0}, 100, rate::fps25);
        SF_INFO info{0, sampleRate, 2, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 0, 0};
        SNDFILE* const sound = sf_open(path("a.flac").c_str(), SFM_WRITE, &info);
        ASSERT_TRUE(sound);
        for (std::size_t i = 0; i < right.size(); ++i) {
            const std::array frame{static_cast<float>(std::sin(static_cast<double>(i) * 0.3)),
                                   right[i]};
            sf_writef_float(sound, frame.data(), 1);
        }
        sf_close(sound);
    }
};

TEST_F(ContentsOf, TakesTheChannelThatHasTimecode) {
    writeStereo();
    const auto tape = contentsOf("a.flac");
    EXPECT_EQ(tape.channels, 2U);
    EXPECT_EQ(tape.channel, 1U);
    ASSERT_EQ(tape.stretches.size(), 1U);
    EXPECT_EQ(tape.stretches[0].frames, 100U);
}

TEST_F(ContentsOf, TakesTheChannelThatItIsTold) {
    writeStereo();
    Recording left(path("a.flac"));
    EXPECT_TRUE(vexa::contentsOf(left, 0, [](double) {}).stretches.empty());
    Recording none(path("a.flac"));
    EXPECT_THROW(vexa::contentsOf(none, 2, [](double) {}), TapeError);
}

} // namespace
