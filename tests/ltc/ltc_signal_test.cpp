#include "ltc/ltc_reader.h"
#include "ltc/ltc_signal.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace vexa;
using namespace vexa::test;

namespace {

constexpr double level = -18;
const float amplitude = static_cast<float>(std::pow(10, level / 20));

Timecode tc(const char* text) { return timecodeFromText(text).value(); }

LtcRun runFrom(const char* time, std::uint64_t rateCode, std::uint64_t words) {
    return {tc(time), frameRateForCode(rateCode), words};
}

/// All samples of a signal until it is silent, rendered in blocks of that size.
std::vector<float> rest(LtcSignal& signal, std::size_t blockSize = 512) {
    std::vector<float> samples;
    while (!signal.isSilent()) {
        samples.resize(samples.size() + blockSize);
        signal.render(std::span(samples).last(blockSize));
    }
    return samples;
}

std::vector<float> samplesOf(const LtcRun& run, std::uint32_t sampleRate,
                             std::size_t blockSize = 512) {
    LtcSignal signal(sampleRate, level);
    signal.start(run);
    return rest(signal, blockSize);
}

std::vector<ReadWord> wordsOf(const LtcRun& run) {
    std::vector<ReadWord> words;
    auto time = run.first;
    for (std::uint64_t i = 0; i < run.words; ++i, time = advanced(time, 1, run.rate))
        words.push_back({time, run.rate.dropFrame});
    return words;
}

struct Case {
    std::uint64_t rate;
    std::uint32_t sampleRate;
    const char* start;
};

std::vector<Case> allCases() {
    std::vector<Case> cases;
    for (std::uint64_t rate = 0; rate < rate::count; ++rate)
        for (const std::uint32_t sampleRate : {8000, 11025, 22050, 44100, 48000, 96000, 192000})
            for (const auto* start : {"00:00:58:00", "00:09:58:00", "23:59:58:00", "01:02:03:07"})
                cases.push_back({rate, sampleRate, start});
    return cases;
}

class EveryClock : public testing::TestWithParam<Case> {};

TEST_P(EveryClock, IsReadWordForWord) {
    const auto& [rate, sampleRate, start] = GetParam();
    const auto run = runFrom(start, rate, 125);
    EXPECT_EQ(wordsIn(samplesOf(run, sampleRate), sampleRate, run.rate), wordsOf(run));
}

INSTANTIATE_TEST_SUITE_P(LtcSignal, EveryClock, testing::ValuesIn(allCases()));

TEST_P(EveryClock, IsReadFromItsFirstWordOnAfterSilence) {
    const auto& [rate, sampleRate, start] = GetParam();
    const auto run = runFrom(start, rate, 3);
    LtcSignal signal(sampleRate, level);
    std::vector<float> samples(sampleRate / 2);
    signal.render(samples);
    signal.start(run);
    const auto first = rest(signal);
    samples.insert(samples.end(), first.begin(), first.end());
    EXPECT_EQ(wordsIn(samples, sampleRate, run.rate), wordsOf(run));

    // Both a decoder that has read another run and a fresh one read it.
    samples.resize(samples.size() + sampleRate / 2);
    const auto next = runFrom("20:00:00:00", rate, 3);
    signal.start(next);
    const auto second = rest(signal);
    samples.insert(samples.end(), second.begin(), second.end());
    auto words = wordsOf(run);
    const auto nextWords = wordsOf(next);
    words.insert(words.end(), nextWords.begin(), nextWords.end());
    EXPECT_EQ(wordsIn(samples, sampleRate, run.rate), words);
    EXPECT_EQ(wordsIn(second, sampleRate, run.rate), nextWords);

    // Swapped leads invert the signal.
    for (auto& sample : samples)
        sample = -sample;
    EXPECT_EQ(wordsIn(samples, sampleRate, run.rate), words);
}

TEST(LtcSignal, IsTheSameInBlocksOfAnySize) {
    const auto run = runFrom("23:59:59:28", rate::fps30Drop, 5);
    auto whole = samplesOf(run, 44100, 16384);
    for (std::size_t blockSize = 1; blockSize <= 4096; ++blockSize) {
        auto samples = samplesOf(run, 44100, blockSize);
        samples.resize(whole.size(), 0.0f);
        ASSERT_EQ(samples, whole) << "in blocks of " << blockSize;
    }
}

/// The zero crossings, in samples.
std::vector<double> crossings(const std::vector<float>& samples) {
    std::vector<double> found;
    for (std::size_t i = 1; i < samples.size(); ++i)
        if (samples[i - 1] * samples[i] < 0)
            found.push_back(static_cast<double>(i - 1) +
                            samples[i - 1] / static_cast<double>(samples[i - 1] - samples[i]));
    return found;
}

class SignalAtEveryRate : public testing::TestWithParam<std::uint64_t> {};

TEST_P(SignalAtEveryRate, HasATransitionWhereTheStandardWantsOne) {
    constexpr std::uint32_t sampleRate = 96000;
    const auto run = runFrom("00:00:59:20", GetParam(), 20);
    const double halfBit = sampleRate / (static_cast<double>(run.rate.frames) /
                                         static_cast<double>(run.rate.seconds) * 160);
    std::vector<double> expected;
    double position = 48; // after the lead-in
    for (auto [time, word] = std::pair{run.first, 0}; word < 20;
         time = advanced(time, 1, run.rate), ++word) {
        const auto bits = ltcWord(time, run.rate);
        for (std::size_t bit = 0; bit < bits.size(); ++bit, position += 2 * halfBit) {
            expected.push_back(position);
            if (bits[bit])
                expected.push_back(position + halfBit);
        }
    }
    expected.push_back(position);

    const auto found = crossings(samplesOf(run, sampleRate));
    ASSERT_EQ(found.size(), expected.size());
    const double halfAnEdge = found.front() - expected.front();
    EXPECT_NEAR(halfAnEdge, 41.5e-6 * sampleRate, 0.1);
    for (std::size_t i = 0; i < found.size(); ++i)
        ASSERT_NEAR(found[i], expected[i] + halfAnEdge, 0.02) << "transition " << i;
}

TEST_P(SignalAtEveryRate, HasNoDirectCurrent) {
    // Five words take a whole number of samples: 8008 at 30 df.
    const auto run = runFrom("01:00:00:00", GetParam(), 11);
    const auto samples = samplesOf(run, 48000);
    const auto period = static_cast<std::ptrdiff_t>(5 * 48000 * run.rate.seconds / run.rate.frames);
    const auto begin = samples.begin() + 24 + period;
    EXPECT_NEAR(std::accumulate(begin, begin + period, 0.0) / static_cast<double>(period), 0, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(LtcSignal, SignalAtEveryRate,
                         testing::Range<std::uint64_t>(0, rate::count));

TEST(LtcSignal, PeaksAtItsLevel) {
    for (const double dbfs : {0.0, -18.0, -40.0}) {
        LtcSignal signal(48000, dbfs);
        signal.start(runFrom("00:00:00:00", rate::fps25, 3));
        const auto samples = rest(signal);
        const auto [low, high] = std::minmax_element(samples.begin(), samples.end());
        EXPECT_FLOAT_EQ(*high, static_cast<float>(std::pow(10, dbfs / 20)));
        EXPECT_EQ(*low, -*high);
    }
}

TEST(LtcSignal, LeadsInWithTheNextSample) {
    LtcSignal signal(48000, level);
    std::vector<float> samples(300);
    signal.render(std::span(samples).first(100));
    signal.start(runFrom("00:00:00:00", rate::fps25, 1));
    signal.render(std::span(samples).last(200));
    const auto first =
        std::find_if(samples.begin(), samples.end(), [](float sample) { return sample != 0; });
    EXPECT_EQ(first - samples.begin(), 101) << "the edge starts at sample 100, with 0";
    EXPECT_EQ(signal.leadIn(), 24u);
    EXPECT_EQ(samples[124], amplitude) << "the word starts at sample 124, at the previous level";
    EXPECT_LT(samples[125], amplitude);
}

TEST(LtcSignal, TellsTheWordUnderWay) {
    LtcSignal signal(48000, level);
    std::vector<float> word(1920);
    signal.start(runFrom("00:00:00:23", rate::fps25, 3));
    signal.render(std::span(word).first(24));
    std::vector<std::string> times;
    while (!signal.isSilent()) {
        signal.render(word);
        times.push_back(timecodeText(signal.time()));
    }
    EXPECT_THAT(times,
                testing::ElementsAre("00:00:00:23", "00:00:00:24", "00:00:01:00", "00:00:01:00"));
}

TEST(LtcSignal, FinishesTheWordUnderWayAndIsSilent) {
    LtcSignal signal(48000, level);
    signal.start(runFrom("10:00:00:00", rate::fps25, UINT64_MAX));
    std::vector<float> samples(24 + 5 * 1920 + 1);
    signal.render(samples);
    signal.finish();
    const auto end = rest(signal);
    samples.insert(samples.end(), end.begin(), end.end());
    EXPECT_EQ(wordsIn(samples, 48000, frameRateForCode(rate::fps25)),
              wordsOf(runFrom("10:00:00:00", rate::fps25, 6)));

    // One more transition, held for a bit of 24 samples.
    const auto afterWords = std::span(samples).subspan(24 + 6 * 1920);
    EXPECT_EQ(crossings({afterWords.begin(), afterWords.end()}).size(), 1u);
    EXPECT_EQ(std::abs(afterWords[24]), amplitude);
    EXPECT_TRUE(std::all_of(afterWords.begin() + 28, afterWords.end(),
                            [](float sample) { return sample == 0; }));
}

TEST(LtcSignal, IsSilentWhereNothingHadBegun) {
    LtcSignal signal(48000, level);
    EXPECT_TRUE(signal.isSilent());
    signal.start(runFrom("10:00:00:00", rate::fps25, UINT64_MAX));
    EXPECT_FALSE(signal.isSilent());
    signal.finish();
    EXPECT_THAT(rest(signal), testing::Each(0.0f));
}

TEST(LtcSignal, BreaksOffForANewRunWithoutAJump) {
    // At every phase of an edge, and between edges.
    for (std::size_t length = 4000; length < 4030; ++length) {
        LtcSignal signal(48000, level);
        std::vector<float> samples(length);
        signal.start(runFrom("10:00:00:00", rate::fps25, UINT64_MAX));
        signal.render(samples);
        const auto next = runFrom("20:00:00:00", rate::fps30, 3);
        signal.start(next);
        const auto afterwards = rest(signal);
        samples.insert(samples.end(), afterwards.begin(), afterwards.end());
        for (std::size_t i = 1; i < samples.size(); ++i)
            ASSERT_LE(std::abs(samples[i] - samples[i - 1]), 1.1f * amplitude) << "sample " << i;
        // The interrupted word may cost a decoder the next one.
        auto words = wordsIn(samples, 48000, next.rate);
        ASSERT_GE(words.size(), 2u);
        words.erase(words.begin(), words.end() - 2);
        EXPECT_EQ(words, wordsOf(runFrom("20:00:00:01", rate::fps30, 2)));
    }
}

TEST(LtcSignal, KeepsItsRateForAnHour) {
    // An hour of drop-frame is 107892 words of 1601.6 samples; the last one ends after 172799827.2.
    LtcSignal signal(48000, level);
    signal.start(runFrom("00:00:00:00", rate::fps30Drop, UINT64_MAX));
    std::vector<float> quarter(172799828 / 4);
    signal.render(std::span(quarter).first(24));
    for (int i = 0; i < 4; ++i)
        signal.render(quarter);
    EXPECT_EQ(timecodeText(signal.time()), "00:59:59:29");
    signal.render(std::span(quarter).first(1));
    EXPECT_EQ(timecodeText(signal.time()), "01:00:00:00");
}

} // namespace
