#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vexa::bench {

/// Summary of a set of measurements.
struct Spread {
    double p50 = 0;
    double p99 = 0;
    double max = 0;
};

/// values: at least one.
inline Spread spreadOf(std::vector<double> values) {
    std::ranges::sort(values);
    const auto at = [&](double share) {
        return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
    };
    return {at(0.5), at(0.99), values.back()};
}

} // namespace vexa::bench
