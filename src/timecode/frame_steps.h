#pragma once

#include "timecode/frame_rate.h"

#include <cstdint>

namespace vexa {

/// Divides each frame of a signal into equal steps, counted in samples from the start of the
/// signal. Stays exact over any length, as no step is rounded.
class FrameSteps {
public:
    FrameSteps(const FrameRate& rate, std::uint32_t sampleRate, std::uint32_t partsOfAFrame)
        : m_divisor(rate.frames * partsOfAFrame),
          m_whole(sampleRate * rate.seconds / m_divisor),
          m_rest(sampleRate * rate.seconds % m_divisor),
          m_lagUnit(1 / static_cast<double>(m_divisor)) {}

    /// The first sample at or after the step.
    std::uint64_t sample() const { return m_sample; }

    /// The time from the step to that sample, as a fraction of a sample: 0 or more, below 1.
    double lag() const { return static_cast<double>(m_lag) * m_lagUnit; }

    void advance() {
        m_sample += m_whole;
        if (m_rest > m_lag) {
            ++m_sample;
            m_lag += m_divisor;
        }
        m_lag -= m_rest;
    }

private:
    std::uint64_t m_divisor;
    std::uint64_t m_whole;
    std::uint64_t m_rest;
    double m_lagUnit; ///< in samples
    std::uint64_t m_sample = 0;
    std::uint64_t m_lag = 0; ///< in units of m_lagUnit
};

} // namespace vexa
