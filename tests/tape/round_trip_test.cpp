// A rendered list passes its own check, whatever its rows.

#include "tape/TapeFolder.h"
#include "tape/tape_check.h"
#include "timecode/frame_number.h"

#include <array>
#include <random>

using namespace vexa;
using namespace vexa::test;

namespace {

constexpr double speedTolerance = 0.0005;

class RoundTrip : public TapeFolder {
protected:
    /// Renders the rows into one file and checks it. Returns what the check objects to.
    std::vector<std::string> objections(const std::vector<TapeRow>& rows, std::uint32_t clock,
                                        double pause) const {
        RenderOptions options;
        options.format.sampleRate = clock;
        options.pause = pause;
        options.existing = Existing::replace;
        renderTo("a.wav", rows, options);
        const auto verdict = compare(rows, std::vector{contentsOf("a.wav")}, speedTolerance);
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto number = "row " + std::to_string(i + 1) + ": ";
            if (verdict.rows[i].passages.empty())
                texts.push_back(number + "missing");
            for (const auto& fault : verdict.rows[i].faults)
                texts.push_back(number + text(fault));
        }
        if (!verdict.unlisted.empty())
            texts.push_back(std::to_string(verdict.unlisted.size()) + " on no row");
        return texts;
    }

    static std::string rowText(const TapeRow& row) {
        return timecodeText(row.start) + " to " + timecodeText(row.stop) + ", " +
               std::string(row.rate->name);
    }
};

/// First frames that begin rows at, before or over an edge of the numbers.
std::vector<std::uint64_t> firstFrames(const FrameRate& rate) {
    std::vector<std::uint64_t> numbers{0, framesADay(rate) - 2};
    for (const auto& edge : {Timecode{0, 0, 1, 0}, Timecode{0, 1, 0, 2}, Timecode{0, 10, 0, 0},
                             Timecode{1, 0, 0, 0}, Timecode{19, 59, 0, 2}})
        for (std::uint64_t before = 0; before < 3; ++before)
            numbers.push_back(frameNumber(edge, rate) - before);
    return numbers;
}

TEST_F(RoundTrip, RowsOfFewFrames) {
    for (const std::uint32_t clock : {44100U, 48000U, 96000U})
        for (const auto& rate : frameRates)
            for (const auto first : firstFrames(rate))
                for (const std::uint64_t frames : {1U, 2U, 3U}) {
                    if (first + frames >= framesADay(rate))
                        continue;
                    const auto tape =
                        row(timeOfFrame(first, rate), timeOfFrame(first + frames, rate), rate.code);
                    EXPECT_THAT(objections({tape}, clock, 0), testing::IsEmpty())
                        << rowText(tape) << ' ' << clock;
                }
}

TEST_F(RoundTrip, ReelsOfShortRows) {
    std::mt19937 random(1);
    const auto upTo = [&](std::uint64_t most) {
        return std::uniform_int_distribution<std::uint64_t>(0, most)(random);
    };
    for (int reel = 0; reel < 200; ++reel) {
        const auto clock = std::array{44100U, 48000U, 96000U}.at(upTo(2));
        const double pause = std::array{0.0, 0.12, 0.5, 1.0, 2.0}.at(upTo(4));
        std::vector<TapeRow> rows;
        std::string texts;
        for (int i = 0; i < 6; ++i) {
            const auto& rate = frameRates.at(upTo(3));
            const auto first = upTo(framesADay(rate) - 40);
            const auto frames = 1 + (upTo(1) == 0 ? upTo(3) : upTo(30));
            rows.push_back(
                row(timeOfFrame(first, rate), timeOfFrame(first + frames, rate), rate.code));
            texts += '\n' + rowText(rows.back());
        }
        EXPECT_THAT(objections(rows, clock, pause), testing::IsEmpty())
            << clock << ", pauses of " << pause << texts;
    }
}

/// The times of the pause are missing, as they would be in a hole.
TEST_F(RoundTrip, RowsThatGoOnWhereThePauseEnds) {
    for (const auto& rate : frameRates)
        for (const std::uint64_t missing : {0U, 2U, 3U, 4U, 12U}) {
            const auto at = [&](std::uint64_t frame) { return timeOfFrame(90000 + frame, rate); };
            const std::vector rows{row(at(0), at(20), rate.code),
                                   row(at(20 + missing), at(40 + missing), rate.code)};
            EXPECT_THAT(objections(rows, 48000, static_cast<double>(missing) * rate.frameInterval),
                        testing::IsEmpty())
                << rate.name << ", without " << missing;
        }
}

TEST_F(RoundTrip, RowsWithTheSameTimes) {
    for (const std::uint64_t frames : {1U, 2U, 25U}) {
        const auto tape =
            row({1, 0, 0, 0}, advanced({1, 0, 0, 0}, frames, frameRates[1]), rate::fps25);
        EXPECT_THAT(objections({tape, tape, tape}, 48000, 0.5), testing::IsEmpty()) << frames;
    }
}

} // namespace
