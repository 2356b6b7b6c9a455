#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vexa {

/// Makes of a recorded channel what a decoder reads best: the samples in 8 bits, levelled, without
/// direct current and hum. What comes out lags behind what goes in.
///
/// It works in cells of two thirds of a millisecond, and looks at those around: over a few bits
/// timecode has no direct current, so that their mean is what does not belong to it.
class SignalShaper {
public:
    explicit SignalShaper(std::uint32_t sampleRate);

    /// Takes samples, of which the first and every `stride`th after it are the channel's, and gives
    /// what is ready, valid until the next call. Samples that are no numbers count as 0.
    std::span<const std::uint8_t> shape(std::span<const float> samples, std::size_t stride);

    /// How many samples what comes out lags behind: the first of them are silence.
    std::size_t lag() const { return m_cellSize * (lanes - 1 - middle); }

    /// What was taken for direct current at last.
    float mean() const { return m_mean; }

    /// Half the way from the lowest to the highest sample, in the middle of what came out last.
    float peak() const { return m_peak; }

private:
    /// How many cells are looked at, and how many samples of a cell are added up at once.
    static constexpr std::size_t lanes = 8;
    static constexpr std::size_t middle = lanes / 2; ///< of the cells, the oldest being 0
    using Lanes = std::array<float, lanes>;

    struct Cell {
        float sum = 0;
        float lowest = 0;
        float highest = 0;
    };

    static Cell measure(std::span<const float> samples);
    static bool isReasonable(const Cell& cell);
    void closeCell(std::span<float> filled, std::span<std::uint8_t> shaped);

    std::size_t m_cellSize;
    std::vector<float> m_samples; ///< of the cells around, a ring
    Lanes m_sums{};               ///< of each of these cells
    Lanes m_lowest{};
    Lanes m_highest{};
    std::size_t m_cell = 0;   ///< of the ring, being filled
    std::size_t m_filled = 0; ///< samples of that
    std::size_t m_seen = 0;   ///< cells of the ring that hold something
    float m_mean = 0;
    float m_peak = 0;
    std::vector<std::uint8_t> m_shaped;
};

} // namespace vexa
