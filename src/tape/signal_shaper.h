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
/// Works in cells of some 1.3 ms and considers the surrounding ones. Over a few bits timecode has
/// no DC, so their mean is not part of the signal.
class SignalShaper {
public:
    explicit SignalShaper(std::uint32_t sampleRate);

    /// Takes samples; the first and every `stride`th after it belong to the channel. Returns the
    /// samples that are ready, valid until the next call. Invalid numbers count as 0.
    std::span<const std::uint8_t> shape(std::span<const float> samples, std::size_t stride);

    /// Whether the last output is silence throughout.
    bool isSilent() const { return m_isSilent; }

    /// How many samples the output lags behind. As many must follow the last one.
    std::size_t lag() const { return m_cellSize * (considered - 1 - middle); }

    /// The last level that was removed as DC.
    float mean() const { return m_mean; }

    /// The greatest peak of the cells in the last output: half the range from the lowest to the
    /// highest sample around a cell.
    float peak() const { return m_peak; }

private:
    /// The number of cells considered.
    static constexpr std::size_t considered = 4;
    static constexpr std::size_t middle = considered / 2; ///< index of a cell; the oldest is 0

    /// What is known of some samples.
    struct Measures {
        float sum = 0;
        float squares = 0;
        float lowest = 0;
        float highest = 0;

        void add(const Measures& others);
        bool areReasonable() const;
    };

    static Measures measure(std::span<const float> cell);
    bool isTimecode(float power, float reach);
    void measureCell(std::span<float> filled);
    void begin(float mean, float reach);
    void shapeMiddle(std::span<std::uint8_t> shaped);

    std::size_t m_cellSize;
    std::vector<float> m_samples; ///< of the considered cells, as a ring
    std::array<Measures, considered> m_cells{};
    std::size_t m_cell = 0;   ///< cell of the ring being filled
    std::size_t m_filled = 0; ///< samples in that cell
    std::size_t m_seen = 0;   ///< cells of the ring with content
    bool m_hasBegun = false;  ///< the first cell was output
    float m_sign = 1;
    bool m_isSilent = true;
    float m_power = 0; ///< average of the latest, relative to the square of the reach
    float m_mean = 0;
    float m_peak = 0;
    std::vector<std::uint8_t> m_shaped;
};

} // namespace vexa
