#include "ltc/ltc_edge.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexa {

namespace {
/// From 0 to 100 %: 2.074 times the time from 10 to 90 %.
constexpr double duration = 82.96e-6;

/// Edges never overlap: half a bit at 30 frames is 1.67 samples at the lowest sample rate.
constexpr double leastSamples = 1.5;

/// Rises from -1 to 1 as x goes from 0 to 1; its slope is a Hann window. That limits the spectrum,
/// so a converter's filter at 48 kHz overshoots by less than 1 %.
double edge(double x) {
    using std::numbers::pi;
    return x < 1 ? 2 * x - 1 - std::sin(2 * pi * x) / pi : 1;
}
} // namespace

LtcEdge::LtcEdge(std::uint32_t sampleRate) {
    const double length = std::max(duration * sampleRate, leastSamples);
    m_size = static_cast<std::size_t>(std::ceil(length));
    m_rows.reserve((phases + 1) * m_size);
    for (int phase = 0; phase <= phases; ++phase) {
        const double lag = static_cast<double>(phase) / phases;
        for (std::size_t i = 0; i < m_size; ++i)
            m_rows.push_back(static_cast<float>(edge((static_cast<double>(i) + lag) / length)));
    }
}

} // namespace vexa
