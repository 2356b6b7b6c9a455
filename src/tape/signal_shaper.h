#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vexa {

/// Prepares a recorded channel for a decoder: 8-bit samples, levelled, without DC and hum, and
/// silence instead of mere noise. The output lags behind the input.
///
/// Works in cells of two thirds of a millisecond and considers the surrounding ones. Over a few
/// bits timecode has no DC, so their mean is not part of the signal.
class SignalShaper {
public:
    explicit SignalShaper(std::uint32_t sampleRate);

    /// Takes samples; the first and every `stride`th after it belong to the channel. Returns the
    /// samples that are ready, valid until the next call. Invalid numbers count as 0.
    std::span<const std::uint8_t> shape(std::span<const float> samples, std::size_t stride);

    /// Lets noisier signals through, which count as mere noise where no timecode has been read.
    void expectTimecode(bool isExpected) { m_isExpected = isExpected; }

    /// Whether the last output is silence throughout.
    bool isSilent() const { return m_isSilent; }

    /// How many samples the output lags behind: so many are needed after the last one.
    std::size_t lag() const { return m_cellSize * (lanes - 1 - middle); }

    /// The last level that was removed as DC.
    float mean() const { return m_mean; }

    /// Half the range from the lowest to the highest sample, in the middle of the last output.
    float peak() const { return m_peak; }

private:
    /// The number of cells considered, and of a cell's samples added at once.
    static constexpr std::size_t lanes = 8;
    static constexpr std::size_t middle = lanes / 2; ///< index of a cell; the oldest is 0
    using Lanes = std::array<float, lanes>;

    struct Cell {
        float sum = 0;
        float squares = 0;
        float lowest = 0;
        float highest = 0;
    };

    static Cell measure(std::span<const float> samples);
    static bool isReasonable(const Cell& cell);
    bool isTimecode(float mean, float reach) const;
    void measureCell(std::span<float> filled);
    void begin(float mean, float reach);
    void shapeMiddle(std::span<std::uint8_t> shaped);

    std::size_t m_cellSize;
    std::vector<float> m_samples; ///< of the considered cells, as a ring
    Lanes m_sums{};               ///< of each of these cells
    Lanes m_squares{};
    Lanes m_lowest{};
    Lanes m_highest{};
    std::size_t m_cell = 0;   ///< cell of the ring being filled
    std::size_t m_filled = 0; ///< samples in that cell
    std::size_t m_seen = 0;   ///< cells of the ring with content
    bool m_hasBegun = false;  ///< the first cell was output
    float m_sign = 1;
    bool m_isExpected = false;
    bool m_isSilent = true;
    float m_mean = 0;
    float m_peak = 0;
    std::vector<std::uint8_t> m_shaped;
};

} // namespace vexa
