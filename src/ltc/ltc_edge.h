#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexa {

/// A sampled edge between the two levels of linear timecode. It rises from 10 to 90 % in 40 us and
/// never overshoots. It is point-symmetric, so it adds no DC. At sample rates below 18 kHz, which
/// cannot resolve that, it lasts 1.5 samples.
class LtcEdge {
public:
    /// Samples per second, 8000 or more.
    explicit LtcEdge(std::uint32_t sampleRate);

    /// Number of samples that an edge spans; after them the level is final.
    std::size_t size() const { return m_size; }

    /// size() samples of an edge from -1 to 1. The lag is the time from the start of the edge to
    /// the first of them: 0 to 1 sample, accurate to a thousandth.
    const float* samples(double lag) const {
        return m_rows.data() + static_cast<std::size_t>(lag * phases + 0.5) * m_size;
    }

private:
    static constexpr int phases = 1024;

    std::size_t m_size;
    std::vector<float> m_rows; ///< one row per lag; the last row is a whole sample late
};

} // namespace vexa
