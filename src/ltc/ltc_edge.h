#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexa {

/// The edge between the two levels of linear timecode, sampled. It rises from 10 to 90 % in 40 us,
/// never overshoots, and is point-symmetric, so that it adds no direct current. Below 18 kHz, where
/// samples lie too far apart for that, it lasts a sample and a half.
class LtcEdge {
public:
    /// Samples a second, 8000 or more.
    explicit LtcEdge(std::uint32_t sampleRate);

    /// The samples that an edge touches; from there on it has reached its end.
    std::size_t size() const { return m_size; }

    /// size() samples of an edge from -1 to 1 that begins so long before the first of them: 0 to 1,
    /// in samples. Accurate to a part in 1000 of a sample.
    const float* samples(double lag) const {
        return m_rows.data() + static_cast<std::size_t>(lag * phases + 0.5) * m_size;
    }

private:
    static constexpr int phases = 1024;

    std::size_t m_size;
    std::vector<float> m_rows; ///< one for each phase, the last as late as the first's next sample
};

} // namespace vexa
