#include "tape/tape_matcher.h"

#include "tape/tape_fault.h"
#include "tape/tape_file.h"
#include "timecode/frame_number.h"

#include <algorithm>

namespace vexa {

namespace {

class Matcher {
public:
    Matcher(std::span<const TapeRow> rows, std::span<const TapeContents> tapes)
        : m_rows(rows), m_tapes(tapes), m_covered(rows.size()) {
        m_match.rows.resize(rows.size());
    }

    TapeMatch match() {
        for (std::size_t recording = 0; recording < m_tapes.size(); ++recording)
            for (std::size_t i = 0; i < m_tapes[recording].stretches.size(); ++i)
                placeStretch(recording, i);
        for (auto& row : m_match.rows)
            std::ranges::sort(row.claims, isEarlier, &Claim::passage);
        std::ranges::sort(m_match.unlisted, isEarlier);
        return std::move(m_match);
    }

private:
    /// Splits a stretch so that no passage goes past midnight.
    void placeStretch(std::size_t recording, std::size_t index) {
        const auto& stretch = m_tapes[recording].stretches[index];
        const auto midnight = framesADay(*stretch.rate) - frameNumber(stretch.first, *stretch.rate);
        place({recording, index, 0, std::min(stretch.frames, midnight)});
        if (stretch.frames > midnight)
            place({recording, index, midnight, stretch.frames});
    }

    void place(const Passage& passage) {
        if (passage.begin == passage.end)
            return;
        const auto row = bestRow(passage);
        if (!row || (isRunOn(passage) && !isWholeIn(passage, m_rows[*row])))
            return leave(passage);
        const auto numbers = numbersOf(passage, *m_rows[*row].rate);
        const auto common = overlap(numbers, rangeOf(m_rows[*row]));
        auto claimed = passage;
        if (stretchOf(passage, m_tapes).rate == m_rows[*row].rate) {
            claimed.begin = passage.begin + (common.begin - numbers.begin);
            claimed.end = claimed.begin + common.size();
        }
        place({passage.recording, passage.stretch, passage.begin, claimed.begin});
        m_covered[*row].add(common);
        m_match.rows[*row].claims.push_back({claimed, common});
        m_last = claimed;
        m_lastRow = row;
        place({passage.recording, passage.stretch, claimed.end, passage.end});
    }

    void leave(const Passage& passage) {
        if (isUnread(passage))
            return;
        if (isRunOn(passage))
            m_match.rows[*m_lastRow].runOn = passage;
        else
            m_match.unlisted.push_back(passage);
    }

    /// Whether the passage is timecode after a row's end, before the generator stopped. It may have
    /// the times at which the next row begins.
    bool isRunOn(const Passage& passage) const {
        const auto aSecond =
            static_cast<std::uint64_t>(stretchOf(passage, m_tapes).rate->frameCount);
        return m_lastRow && m_last.recording == passage.recording &&
               m_last.stretch == passage.stretch && m_last.end == passage.begin &&
               passage.end - passage.begin < aSecond;
    }

    /// Whether no frame of the passage was read. A pause between two rows looks like such a hole,
    /// if the next row's times go on as if frames had passed.
    bool isUnread(const Passage& passage) const {
        return std::ranges::any_of(stretchOf(passage, m_tapes).holes, [&](const Hole& hole) {
            return hole.firstFrame <= passage.begin && passage.end <= hole.firstFrame + hole.frames;
        });
    }

    /// Whether the passage holds the whole row.
    bool isWholeIn(const Passage& passage, const TapeRow& row) const {
        return overlap(numbersOf(passage, *row.rate), rangeOf(row)) == rangeOf(row);
    }

    /// A passage's numbers, counted at a row's rate.
    FrameRange numbersOf(const Passage& passage, const FrameRate& rate) const {
        const auto& stretch = stretchOf(passage, m_tapes);
        const auto& own = *stretch.rate;
        const auto first = timeOfFrame(frameNumber(stretch.first, own) + passage.begin, own);
        if (&own == &rate) {
            const auto begin = frameNumber(first, own);
            return {begin, begin + passage.end - passage.begin};
        }
        auto clipped = first;
        clipped.frames = std::min(clipped.frames, static_cast<std::uint64_t>(rate.frameCount) - 1);
        const auto begin = frameNumber(clipped, rate);
        const auto length =
            static_cast<double>(passage.end - passage.begin) * rate.frameCount / own.frameCount;
        return {begin, begin + std::max<std::uint64_t>(static_cast<std::uint64_t>(length), 1)};
    }

    std::optional<std::size_t> bestRow(const Passage& passage) const {
        std::optional<std::size_t> best;
        double bestFit = 0;
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            if (const auto fit = fitOf(passage, row); fit > bestFit) {
                best = row;
                bestFit = fit;
            }
        return best;
    }

    /// How well the passage and a row cover each other, from 0 to 1; more if the user bits name the
    /// row's reel.
    double fitOf(const Passage& passage, std::size_t index) const {
        const auto& row = m_rows[index];
        const auto& stretch = stretchOf(passage, m_tapes);
        const auto range = rangeOf(row);
        const auto numbers = numbersOf(passage, *row.rate);
        const auto common = overlap(numbers, range);
        const auto fresh = common.size() - m_covered[index].count(common);
        if (common.size() == 0 || fresh == 0)
            return 0;
        // A continuation of the row after a fault may repeat some of it.
        const auto gain = isWithin(passage, index) ? common.size() : fresh;
        const auto all = range.size() + numbers.size() - common.size();
        const double fit = static_cast<double>(gain) / static_cast<double>(all);
        const bool isReel = stretch.userBits != 0 && stretch.userBits == reelUserBits(row.reel);
        return fit * (isReel ? 2 : 1) * (stretch.rate == row.rate ? 1 : 0.5);
    }

    /// Whether the passage directly follows the last one placed, which belongs to the row.
    bool isWithin(const Passage& passage, std::size_t row) const {
        return m_lastRow == row && m_last.recording == passage.recording &&
               m_last.stretch + 1 == passage.stretch &&
               followsAtOnce(stretchOf(m_last, m_tapes), stretchOf(passage, m_tapes),
                             m_tapes[passage.recording].sampleRate);
    }

    std::span<const TapeRow> m_rows;
    std::span<const TapeContents> m_tapes;
    TapeMatch m_match;
    std::vector<FrameRanges> m_covered; ///< per row
    Passage m_last;
    std::optional<std::size_t> m_lastRow; ///< the row of m_last
};

} // namespace

FrameRange rangeOf(const TapeRow& row) {
    return {frameNumber(row.start, *row.rate), frameNumber(row.stop, *row.rate)};
}

TapeMatch match(std::span<const TapeRow> rows, std::span<const TapeContents> tapes) {
    return Matcher(rows, tapes).match();
}

} // namespace vexa
