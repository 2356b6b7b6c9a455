#include "tape/signal_shaper.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <utility>

namespace vexa {

namespace {
constexpr std::uint32_t cellsASecond = 1500;

/// Weaker signals are a tape's noise and are not raised to full height.
constexpr float quietest = 0.0005F; // -66 dBFS

/// In a file of floats, larger samples are no sound.
constexpr float loudest = 100;

/// Of the 127 steps in each direction; the rest is headroom for noise.
constexpr float height = 100;

constexpr std::uint8_t silence = 128;

/// Relative to the square of the reach. Timecode has more than half, noise an eighth.
constexpr float leastPower = 0.21F;
constexpr float leastPowerExpected = 0.05F;

/// Samples this close to the middle become silence, so that noise just before timecode has no
/// edges.
constexpr int rest = 25;

/// Combines two halves at a time, so the processor handles several values at once.
template<std::size_t size, typename Combine>
float folded(std::array<float, size> values, Combine combine) {
    for (auto half = size / 2; half > 0; half /= 2)
        for (std::size_t i = 0; i < half; ++i)
            values[i] = combine(values[i], values[i + half]);
    return values[0];
}

constexpr auto lower = [](float a, float b) { return b < a ? b : a; };
constexpr auto higher = [](float a, float b) { return b > a ? b : a; };
} // namespace

SignalShaper::SignalShaper(std::uint32_t sampleRate)
    : m_cellSize(std::max(sampleRate / cellsASecond, 1U)), m_samples(m_cellSize * lanes) {}

std::span<const std::uint8_t> SignalShaper::shape(std::span<const float> samples,
                                                  std::size_t stride) {
    const float* next = samples.data();
    auto left = (samples.size() + stride - 1) / stride;
    m_shaped.resize((m_filled + left) / m_cellSize * m_cellSize);
    m_isSilent = true;
    std::span to(m_shaped);
    while (left > 0) {
        const auto count = std::min(left, m_cellSize - m_filled);
        const auto cell = std::span(m_samples).subspan(m_cell * m_cellSize, m_cellSize);
        if (stride == 1)
            std::copy_n(next, count, cell.data() + m_filled);
        else
            for (std::size_t i = 0; i < count; ++i)
                cell[m_filled + i] = next[i * stride];
        next += count * stride;
        left -= count;
        m_filled += count;
        if (m_filled < m_cellSize)
            continue;
        measureCell(cell);
        if (m_seen < lanes - middle) // the first cell is not in the middle yet
            continue;
        shapeMiddle(to.first(m_cellSize));
        to = to.subspan(m_cellSize);
    }
    m_shaped.resize(m_shaped.size() - to.size());
    return m_shaped;
}

SignalShaper::Cell SignalShaper::measure(std::span<const float> samples) {
    Lanes sums{};
    Lanes squares{};
    Lanes lowest;
    Lanes highest;
    lowest.fill(samples[0]);
    highest.fill(samples[0]);
    std::size_t i = 0;
    // A loop for each, or the compiler does not see that the lanes do the same.
    for (; i + lanes <= samples.size(); i += lanes) {
        const float* const next = samples.data() + i;
        for (std::size_t lane = 0; lane < lanes; ++lane)
            sums[lane] += next[lane];
        for (std::size_t lane = 0; lane < lanes; ++lane)
            squares[lane] += next[lane] * next[lane];
        for (std::size_t lane = 0; lane < lanes; ++lane)
            lowest[lane] = lower(lowest[lane], next[lane]);
        for (std::size_t lane = 0; lane < lanes; ++lane)
            highest[lane] = higher(highest[lane], next[lane]);
    }
    for (; i < samples.size(); ++i) {
        sums[0] += samples[i];
        squares[0] += samples[i] * samples[i];
        lowest[0] = lower(lowest[0], samples[i]);
        highest[0] = higher(highest[0], samples[i]);
    }
    return {folded(sums, std::plus()), folded(squares, std::plus()), folded(lowest, lower),
            folded(highest, higher)};
}

bool SignalShaper::isReasonable(const Cell& cell) {
    // A sum that includes NaN fails every comparison.
    return cell.lowest >= -loudest && cell.highest <= loudest && std::abs(cell.sum) < FLT_MAX;
}

/// Timecode spends most of its time near one of two levels; noise does not. A decoder fed with
/// noise takes its edges for bits, and misses the first words that follow.
bool SignalShaper::isTimecode(float mean, float reach) const {
    const auto samples = static_cast<float>(m_seen * m_cellSize);
    const float power = folded(m_squares, std::plus()) / samples - mean * mean;
    return power > (m_isExpected ? leastPowerExpected : leastPower) * reach * reach;
}

void SignalShaper::measureCell(std::span<float> filled) {
    auto cell = measure(filled);
    if (!isReasonable(cell)) {
        for (float& sample : filled)
            sample = std::abs(sample) <= loudest ? sample : 0;
        cell = measure(filled);
    }
    if (m_seen == 0) {
        m_lowest.fill(cell.lowest);
        m_highest.fill(cell.highest);
    }
    m_sums[m_cell] = cell.sum;
    m_squares[m_cell] = cell.squares;
    m_lowest[m_cell] = cell.lowest;
    m_highest[m_cell] = cell.highest;
    m_cell = (m_cell + 1) % lanes;
    m_filled = 0;
    m_seen = std::min(m_seen + 1, lanes);
}

/// The decoder assumes that the recording begins with an edge down to the low level. So the
/// recording is inverted if it begins high, and what is left of the level before an edge that comes
/// at once is overwritten.
void SignalShaper::begin(float mean, float reach) {
    const std::span seen(m_samples.data(), m_seen * m_cellSize);
    const auto isHigh = [&](float sample) { return sample - mean > reach / 2; };
    const auto isLow = [&](float sample) { return mean - sample > reach / 2; };
    const auto high = std::ranges::find_if(seen, isHigh);
    const auto low = std::ranges::find_if(seen, isLow);
    const auto edge = std::max(high, low);
    const auto soon = static_cast<std::ptrdiff_t>(m_cellSize / 5);
    const bool isAtOnce = edge - seen.begin() < soon;
    if (isAtOnce)
        std::fill(seen.begin(), edge, *edge);
    m_sign = (high < low) != isAtOnce ? -1.F : 1.F;
}

void SignalShaper::shapeMiddle(std::span<std::uint8_t> shaped) {
    const float lowest = folded(m_lowest, lower);
    const float highest = folded(m_highest, higher);
    const float mean = m_mean =
        folded(m_sums, std::plus()) / static_cast<float>(m_seen * m_cellSize);
    m_peak = (highest - lowest) / 2;
    const float reach = std::max({highest - mean, mean - lowest, quietest});
    if (!std::exchange(m_hasBegun, true))
        begin(mean, reach);
    if (!isTimecode(mean, reach)) {
        std::ranges::fill(shaped, silence);
        return;
    }
    m_isSilent = false;
    const float gain = m_sign * height / reach;

    const float* const from = m_samples.data() + (m_cell + middle) % lanes * m_cellSize;
    std::uint8_t* const to = shaped.data();
    for (std::size_t i = 0, count = shaped.size(); i < count; ++i) {
        const auto sample = static_cast<int>((from[i] - mean) * gain);
        to[i] = static_cast<std::uint8_t>(silence + (std::abs(sample) < rest ? 0 : sample));
    }
}

} // namespace vexa
