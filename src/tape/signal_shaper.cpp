#include "tape/signal_shaper.h"

#include <algorithm>
#include <cmath>

namespace vexa {

namespace {
constexpr std::uint32_t cellsASecond = 3000;

/// Signals below this are not brought up to the full height: they are a tape's noise.
constexpr float quietest = 0.0005F; // -66 dBFS

/// Of the 127 steps to either side; leaves room for what the noise puts on top.
constexpr float height = 100;
} // namespace

SignalShaper::SignalShaper(std::uint32_t sampleRate)
    : m_cellSize(std::max(sampleRate / cellsASecond, 1U)),
      m_samples(m_cellSize * around),
      m_cells(around) {}

std::span<const std::uint8_t> SignalShaper::shape(std::span<const float> samples,
                                                  std::size_t stride) {
    m_shaped.clear();
    const float* next = samples.data();
    auto left = (samples.size() + stride - 1) / stride;
    while (left > 0) {
        const auto count = std::min(left, m_cellSize - m_filled);
        float* const place = m_samples.data() + m_cell * m_cellSize + m_filled;
        for (std::size_t i = 0; i < count; ++i)
            place[i] = next[i * stride];
        next += count * stride;
        left -= count;
        m_filled += count;
        if (m_filled == m_cellSize)
            closeCell();
    }
    return m_shaped;
}

void SignalShaper::closeCell() {
    const std::span filled(m_samples.data() + m_cell * m_cellSize, m_cellSize);
    Cell cell{0, filled[0], filled[0]};
    for (float& sample : filled) {
        // Not a number, or a number beyond reason, in a file of floats.
        sample = std::abs(sample) < 100 ? sample : 0;
        cell.sum += sample;
        cell.lowest = std::min(cell.lowest, sample);
        cell.highest = std::max(cell.highest, sample);
    }
    m_cells[m_cell] = cell;
    m_cell = (m_cell + 1) % around;
    m_filled = 0;
    m_seen = std::min(m_seen + 1, around);

    Cell all{0, cell.lowest, cell.highest};
    for (const auto& each : std::span(m_cells).first(m_seen)) {
        all.sum += each.sum;
        all.lowest = std::min(all.lowest, each.lowest);
        all.highest = std::max(all.highest, each.highest);
    }
    m_mean = all.sum / static_cast<float>(m_seen * m_cellSize);
    m_peak = (all.highest - all.lowest) / 2;
    const float reach = std::max({all.highest - m_mean, m_mean - all.lowest, quietest});
    const float gain = height / reach;

    const float mean = m_mean;
    const auto middle = (m_cell + around / 2) % around;
    const float* const from = m_samples.data() + middle * m_cellSize;
    const auto done = m_shaped.size();
    m_shaped.resize(done + m_cellSize);
    std::uint8_t* const to = m_shaped.data() + done;
    for (std::size_t i = 0; i < m_cellSize; ++i)
        to[i] = static_cast<std::uint8_t>(static_cast<int>(128.5F + (from[i] - mean) * gain));
}

} // namespace vexa
