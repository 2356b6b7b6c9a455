#include "generator/generator.h"
#include "generator/hex_bytes.h"
#include "ltc/ltc_reader.h"
#include "support/allocations.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

using namespace vexa;
using namespace vexa::test;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::uint32_t sampleRate = 48000;

const std::string stop = "F0 7D 42 00 00 00 00 00 F7";
const std::string dtlSetup = "F0 7D 42 01 00 00 00 05 F7"; // 25 fps
const std::string mtcSetup = "F0 7D 42 01 00 00 00 01 F7";
const std::string start = "F0 7D 42 01 00 00 00 7F F7";

/// A generator and its output.
class GeneratorTest : public testing::Test, public MidiWriter {
protected:
    Report send(const std::string& hex) { return generator.take(messagesIn(hex).at(0), *this); }

    void run(std::size_t samples) {
        std::vector<float> block(samples);
        generator.render(block, *this);
        ltc.insert(ltc.end(), block.begin(), block.end());
    }

    /// "1920 F1 00": an event at a sample.
    void write(std::uint64_t samples, std::span<const std::uint8_t> message) override {
        SysEx bytes;
        std::copy(message.begin(), message.end(), bytes.bytes.begin());
        bytes.size = message.size();
        midi.push_back(std::to_string(ltc.size() + samples) + " " + hexText(bytes));
    }

    std::vector<ReadWord> words() const {
        return wordsIn(ltc, sampleRate, frameRateForCode(rate::fps25));
    }

    Generator generator{sampleRate, -18};
    std::vector<float> ltc;
    std::vector<std::string> midi;
};

TEST_F(GeneratorTest, IsSilentWithoutAStart) {
    run(1000);
    send(dtlSetup);
    run(1000);
    EXPECT_THAT(ltc, Each(0.0f));
    EXPECT_THAT(midi, IsEmpty());
}

TEST_F(GeneratorTest, GivesLtcAndMtcForMtc) {
    run(100);
    send(mtcSetup);
    run(20);
    send(start);
    run(24 + 5 * 1920);
    EXPECT_THAT(ltc[120], 0.0f);
    EXPECT_GT(ltc[121], 0.0f) << "the lead-in starts with 0, at the sample of the start";
    EXPECT_EQ(words().at(0), (ReadWord{{1, 0, 0, 0}, false}));
    EXPECT_EQ(midi.at(0), "100 F0 7F 7F 01 01 21 00 00 00 F7");
    midi.erase(midi.begin());
    ASSERT_EQ(midi.size(), 20u);
    EXPECT_EQ(midi[0], "144 F1 00");
    EXPECT_EQ(midi[7], "3504 F1 72");
    EXPECT_EQ(midi[8], "3984 F1 02");
    EXPECT_EQ(midi[19], "9264 F1 30");
}

TEST_F(GeneratorTest, GivesLtcAloneForDtl) {
    send(dtlSetup);
    send(start);
    run(3 * 1920);
    EXPECT_EQ(words().size(), 2u);
    EXPECT_THAT(midi, IsEmpty());
}

TEST_F(GeneratorTest, GivesNothingForFsk) {
    send("F0 7D 42 01 00 00 00 08 F7");
    EXPECT_EQ(send(start).reply, Reply::done);
    run(10000);
    EXPECT_THAT(ltc, Each(0.0f));
    EXPECT_EQ(send(stop).stoppedAt, std::nullopt);
    EXPECT_THAT(midi, IsEmpty());
}

TEST_F(GeneratorTest, FinishesTheWordUnderWayAtAStop) {
    send(mtcSetup);
    send(start);
    run(24 + 3 * 1920 + 500);
    const auto report = send(stop);
    EXPECT_EQ(report.stoppedAt, (Timecode{1, 0, 0, 3}));
    const auto events = midi.size();
    run(5 * 1920);
    EXPECT_EQ(words().back(), (ReadWord{{1, 0, 0, 3}, false}));
    EXPECT_NE(ltc[24 + 4 * 1920 + 20], 0.0f);
    EXPECT_THAT(std::span(ltc).subspan(24 + 4 * 1920 + 30), Each(0.0f));
    EXPECT_EQ(midi.size(), events) << "quarter frames after the stop";
}

TEST_F(GeneratorTest, IsSilentWhereStartAndStopComeTogether) {
    send(mtcSetup);
    send(start);
    EXPECT_EQ(send(stop).stoppedAt, (Timecode{1, 0, 0, 0}));
    run(5000);
    EXPECT_THAT(ltc, Each(0.0f));
    EXPECT_THAT(midi, ElementsAre("0 F0 7F 7F 01 01 21 00 00 00 F7"));
}

TEST_F(GeneratorTest, GoesOnAfterWhatItRefuses) {
    send(dtlSetup);
    send(start);
    run(1000);
    EXPECT_EQ(send(mtcSetup).reply, Reply::whileRunning);
    run(1000);
    EXPECT_EQ(send(start).reply, Reply::whileRunning);
    run(1000);
    EXPECT_EQ(send("F0 7D 42").reply, Reply::malformed);
    run(3 * 1920);
    EXPECT_EQ(words(), (std::vector<ReadWord>{{{1, 0, 0, 0}, false},
                                              {{1, 0, 0, 1}, false},
                                              {{1, 0, 0, 2}, false},
                                              {{1, 0, 0, 3}, false}}));
    EXPECT_THAT(midi, IsEmpty());
}

TEST_F(GeneratorTest, BeginsANewRunAtItsStartEvenInTheLastWordOfTheOneBefore) {
    send(dtlSetup);
    send(start);
    run(2 * 1920 + 700);
    send(stop);
    send("F0 7D 42 02 00 00 00 05 F7");
    send("F0 7D 42 02 00 00 00 7F F7");
    const auto begin = ltc.size();
    run(4 * 1920);
    EXPECT_EQ(ltc[begin + 24], ltc[begin + 4]) << "no lead-in";
    EXPECT_LT(ltc[begin + 26], ltc[begin + 24]) << "no word after it";
    ltc.erase(ltc.begin(), ltc.begin() + static_cast<std::ptrdiff_t>(begin));
    EXPECT_EQ(words(), (std::vector<ReadWord>{
                           {{2, 0, 0, 0}, false}, {{2, 0, 0, 1}, false}, {{2, 0, 0, 2}, false}}));
}

TEST_F(GeneratorTest, AnnouncesTheSetupThatIsAStopAtItsStart) {
    send(stop);
    run(100);
    send("F0 7D 42 00 00 00 00 7F F7");
    run(100);
    EXPECT_THAT(midi, ElementsAre("100 F0 7F 7F 01 01 00 00 00 00 F7", "124 F1 00"));
}

TEST_F(GeneratorTest, IsTheSameInPeriodsOfAnySize) {
    const auto recorded = [](std::size_t period) {
        GeneratorTest_IsTheSameInPeriodsOfAnySize_Test test;
        test.send("F0 7D 42 00 00 3A 01 03 F7"); // 30 df
        test.send("F0 7D 42 00 00 3A 01 7F F7");
        while (test.ltc.size() + period <= 65536)
            test.run(period);
        test.run(65536 - test.ltc.size());
        return std::pair(test.ltc, test.midi);
    };
    const auto whole = recorded(65536);
    EXPECT_EQ(whole.second.size(), 1u + 4 * 40);
    for (const std::size_t period : {16, 64, 441, 1024, 4096})
        EXPECT_EQ(recorded(period), whole) << period;
}

/// Accepts messages and discards them.
class Sink : public MidiWriter {
public:
    void write(std::uint64_t, std::span<const std::uint8_t>) override {}
};

TEST(GeneratorInRealTime, DoesNotAllocate) {
    std::vector<SysEx> messages;
    for (const auto* code : {"00", "01", "02", "03", "04", "08", "09"}) {
        messages.push_back(messagesIn(stop)[0]);
        messages.push_back(messagesIn(std::string("F0 7D 42 00 00 3B 10 ") + code + " F7")[0]);
        messages.push_back(messagesIn("F0 7D 42 00 00 3B 10 7F F7")[0]);
        messages.push_back(messagesIn("F0 7D")[0]);
    }
    Generator generator(sampleRate, -18);
    std::array<float, 256> block{};
    Sink sink;
    const int before = allocations();
    for (const auto& message : messages) {
        generator.take(message, sink);
        for (int i = 0; i < 100; ++i)
            generator.render(block, sink);
    }
    EXPECT_EQ(allocations(), before);
}

} // namespace
