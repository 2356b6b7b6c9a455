#include "tape/tape_check.h"

#include "tape/tape_matcher.h"
#include "timecode/frame_number.h"

#include <algorithm>

namespace vexa {

namespace {

using Kind = TapeFault::Kind;

/// Collects the faults of a row.
class RowFaults {
public:
    RowFaults(const TapeRow& row, std::span<const TapeContents> tapes, double speedTolerance)
        : m_row(row), m_tapes(tapes), m_speedTolerance(speedTolerance) {}

    std::vector<TapeFault> of(const RowMatch& match) {
        const auto& claims = match.claims;
        addBeginning(*std::ranges::min_element(claims, {}, firstNumber));
        for (std::size_t i = 0; i < claims.size(); ++i) {
            if (i > 0)
                addJunction(claims[i - 1], claims[i]);
            addWithin(claims[i].passage);
        }
        addEnd(*std::ranges::max_element(claims, {}, endNumber));
        if (match.runOn)
            addRunOn(*match.runOn);
        return std::move(m_faults);
    }

private:
    static std::uint64_t firstNumber(const Claim& claim) { return claim.numbers.begin; }
    static std::uint64_t endNumber(const Claim& claim) { return claim.numbers.end; }

    TapeFault& add(Kind kind, const Passage& passage, std::uint64_t frame) {
        m_faults.push_back({kind, passage.recording, placeOf(passage, frame, m_tapes)});
        return m_faults.back();
    }

    void addBeginning(const Claim& first) {
        const auto late = first.numbers.begin - rangeOf(m_row).begin;
        if (late == 0 || !hasRate(first.passage))
            return;
        auto& fault = add(Kind::late, first.passage, first.passage.begin);
        fault.frames = late;
        fault.from = firstOf(first.passage, m_tapes);
    }

    void addEnd(const Claim& last) {
        const auto early = rangeOf(m_row).end - last.numbers.end;
        if (early == 0 || !hasRate(last.passage))
            return;
        auto& fault = add(Kind::early, last.passage, last.passage.end);
        fault.frames = early;
        fault.to = lastOf(last.passage, m_tapes);
    }

    void addJunction(const Claim& before, const Claim& after) {
        const auto recording = before.passage.recording;
        if (recording == after.passage.recording) {
            m_faults.push_back(junctionFault(stretchOf(before.passage, m_tapes),
                                             stretchOf(after.passage, m_tapes),
                                             m_tapes[recording].sampleRate, recording));
        } else if (before.numbers.end < after.numbers.begin) {
            auto& fault = add(Kind::missing, after.passage, after.passage.begin);
            fault.frames = after.numbers.begin - before.numbers.end;
            fault.from = timeOfFrame(before.numbers.end, *m_row.rate);
            fault.to = timeOfFrame(after.numbers.begin - 1, *m_row.rate);
        } else if (before.numbers.end > after.numbers.begin) {
            auto& fault = add(Kind::back, after.passage, after.passage.begin);
            fault.frames = before.numbers.end - after.numbers.begin;
            fault.from = firstOf(after.passage, m_tapes);
        }
    }

    void addWithin(const Passage& passage) {
        const auto& stretch = stretchOf(passage, m_tapes);
        if (!hasRate(passage)) {
            auto& fault = add(Kind::rate, passage, passage.begin);
            fault.rate = stretch.rate;
            fault.from = firstOf(passage, m_tapes);
        }
        if (const auto fault = speedFault(stretch, m_tapes[passage.recording], m_speedTolerance,
                                          passage.recording))
            m_faults.push_back(*fault);
        for (const auto& hole : stretch.holes)
            if (overlap({hole.firstFrame, hole.firstFrame + hole.frames},
                        {passage.begin, passage.end})
                    .size() > 0)
                m_faults.push_back(unreadFault(stretch, hole, passage.recording));
    }

    void addRunOn(const Passage& passage) {
        add(Kind::runOn, passage, passage.begin).frames = passage.end - passage.begin;
    }

    bool hasRate(const Passage& passage) const {
        return stretchOf(passage, m_tapes).rate == m_row.rate;
    }

    const TapeRow& m_row;
    std::span<const TapeContents> m_tapes;
    double m_speedTolerance;
    std::vector<TapeFault> m_faults;
};

} // namespace

bool RowVerdict::isWhole() const {
    return !passages.empty() && std::ranges::none_of(faults, &TapeFault::isFault);
}

TapeVerdict compare(std::span<const TapeRow> rows, std::span<const TapeContents> tapes,
                    double speedTolerance) {
    auto match = vexa::match(rows, tapes);
    TapeVerdict verdict;
    verdict.unlisted = std::move(match.unlisted);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        auto& row = verdict.rows.emplace_back();
        if (match.rows[i].claims.empty())
            continue;
        row.faults = RowFaults(rows[i], tapes, speedTolerance).of(match.rows[i]);
        for (const auto& claim : match.rows[i].claims)
            row.passages.push_back(claim.passage);
    }
    return verdict;
}

} // namespace vexa
