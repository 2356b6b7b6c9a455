#include "tape/signal_shaper.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <utility>

namespace vexa {

namespace {
constexpr std::uint32_t cellsASecond = 750;

/// Weaker signals are a tape's noise and are not raised to full height.
constexpr float quietest = 0.0005F; // -66 dBFS

/// In a file of floats, larger samples are not sound.
constexpr float loudest = 100;

/// Of the 127 steps in each direction; the rest is headroom for noise.
constexpr float height = 100;

constexpr std::uint8_t silence = 128;

/// The power of timecode, relative to the square of the reach. Clean timecode has more than 0.5;
/// noise has some 0.13, seldom more than 0.2, and less than 0.16 on average over a while.
constexpr float leastPower = 0.21F;
constexpr float leastAveragePower = 0.17F;

/// Cells over which the power is averaged. That is about one word.
constexpr float averaged = 32;

/// The most that a cell counts in the average, so that this falls soon after timecode ends.
constexpr float mostPower = 0.3F;

/// Samples this close to the middle become silence, so that noise just before timecode has no
/// edges.
constexpr std::uint8_t rest = 24;
constexpr std::uint8_t lowestRest = silence - rest;

/// Number of samples that the processor handles at once.
constexpr std::size_t lanes = 4;
using Lanes [[gnu::vector_size(lanes * sizeof(float))]] = float;

Lanes lanesAt(const float* samples) {
    Lanes values;
    std::memcpy(&values, samples, sizeof values);
    return values;
}

/// A multiple of `lanes`.
std::size_t cellSize(std::uint32_t sampleRate) {
    return std::max<std::size_t>(sampleRate / cellsASecond / lanes, 1) * lanes;
}
} // namespace

SignalShaper::SignalShaper(std::uint32_t sampleRate)
    : m_cellSize(cellSize(sampleRate)), m_samples(m_cellSize * considered) {}

std::span<const std::uint8_t> SignalShaper::shape(std::span<const float> samples,
                                                  std::size_t stride) {
    const float* next = samples.data();
    auto left = (samples.size() + stride - 1) / stride;
    m_shaped.resize((m_filled + left) / m_cellSize * m_cellSize);
    m_isSilent = true;
    if (!m_shaped.empty())
        m_peak = 0;
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
        if (m_seen < considered - middle) // the first cell is not in the middle yet
            continue;
        shapeMiddle(to.first(m_cellSize));
        to = to.subspan(m_cellSize);
    }
    m_shaped.resize(m_shaped.size() - to.size());
    return m_shaped;
}

inline void SignalShaper::Measures::add(const Measures& others) {
    sum += others.sum;
    squares += others.squares;
    lowest = others.lowest < lowest ? others.lowest : lowest;
    highest = others.highest > highest ? others.highest : highest;
}

inline bool SignalShaper::Measures::areReasonable() const {
    // A sum that includes NaN fails every comparison.
    return lowest >= -loudest && highest <= loudest && std::abs(sum) < FLT_MAX;
}

SignalShaper::Measures SignalShaper::measure(std::span<const float> cell) {
    Lanes sums{};
    Lanes squares{};
    auto lowest = lanesAt(cell.data());
    auto highest = lowest;
    for (std::size_t i = 0; i < cell.size(); i += lanes) {
        const auto next = lanesAt(&cell[i]);
        sums += next;
        squares += next * next;
        lowest = next < lowest ? next : lowest;
        highest = next > highest ? next : highest;
    }
    Measures all{sums[0], squares[0], lowest[0], highest[0]};
    for (std::size_t lane = 1; lane < lanes; ++lane)
        all.add({sums[lane], squares[lane], lowest[lane], highest[lane]});
    return all;
}

/// Timecode spends most of its time near one of two levels; noise does not. A decoder fed with
/// noise takes its edges for bits, and misses the first words that follow. Noisy timecode can only
/// be told from noise on average.
bool SignalShaper::isTimecode(float power, float reach) {
    const float relative = power / (reach * reach);
    m_power += (std::min(relative, mostPower) - m_power) / averaged;
    return relative > leastPower || m_power > leastAveragePower;
}

void SignalShaper::measureCell(std::span<float> filled) {
    auto cell = measure(filled);
    if (!cell.areReasonable()) {
        for (float& sample : filled)
            sample = std::abs(sample) <= loudest ? sample : 0;
        cell = measure(filled);
    }
    if (m_seen == 0)
        m_cells.fill({0, 0, cell.lowest, cell.highest});
    m_cells[m_cell] = cell;
    m_cell = (m_cell + 1) % considered;
    m_filled = 0;
    m_seen = std::min(m_seen + 1, considered);
}

/// The decoder assumes that the recording begins with an edge down to the low level. So the
/// recording is inverted if it begins low with an edge that comes at once, or high without one.
void SignalShaper::begin(float mean, float reach) {
    const std::span seen(m_samples.data(), m_seen * m_cellSize);
    const auto isHigh = [&](float sample) { return sample - mean > reach / 2; };
    const auto isLow = [&](float sample) { return mean - sample > reach / 2; };
    const auto high = std::ranges::find_if(seen, isHigh);
    const auto low = std::ranges::find_if(seen, isLow);
    const auto soon = static_cast<std::ptrdiff_t>(m_cellSize / 10);
    const bool isAtOnce = std::max(high, low) - seen.begin() < soon;
    m_sign = (high < low) != isAtOnce ? -1.F : 1.F;
}

void SignalShaper::shapeMiddle(std::span<std::uint8_t> shaped) {
    auto all = m_cells[0];
    for (std::size_t i = 1; i < considered; ++i)
        all.add(m_cells[i]);
    const auto samples = static_cast<float>(m_seen * m_cellSize);
    const float mean = m_mean = all.sum / samples;
    m_peak = std::max(m_peak, (all.highest - all.lowest) / 2);
    const float reach = std::max({all.highest - mean, mean - all.lowest, quietest});
    if (!std::exchange(m_hasBegun, true))
        begin(mean, reach);
    if (!isTimecode(all.squares / samples - mean * mean, reach)) {
        std::ranges::fill(shaped, silence);
        return;
    }
    m_isSilent = false;
    const float gain = m_sign * height / reach;

    const float* const from = m_samples.data() + (m_cell + middle) % considered * m_cellSize;
    std::uint8_t* const to = shaped.data();
    for (std::size_t i = 0, count = shaped.size(); i < count; ++i) {
        const auto sample = static_cast<int>((from[i] - mean) * gain + (silence + 0.5F));
        const auto step = static_cast<std::uint8_t>(sample);
        to[i] = static_cast<std::uint8_t>(step - lowestRest) <= 2 * rest ? silence : step;
    }
}

} // namespace vexa
