#include "text/duration_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vexa {

std::string durationText(std::chrono::duration<double> time) {
    constexpr double rounding = 1e-6; // rounding error of summed frames; far below one frame
    constexpr double longest = 1e12;
    const auto bounded = std::clamp(std::ceil(time.count() - rounding), 0.0, longest);
    const auto seconds = static_cast<std::uint64_t>(bounded);
    const auto twoDigits = [](std::uint64_t value) {
        return (value < 10 ? ":0" : ":") + std::to_string(value);
    };
    const auto hours = seconds / 3600;
    const auto minutes = seconds / 60 % 60;
    const auto upToMinutes =
        hours == 0 ? std::to_string(minutes) : std::to_string(hours) + twoDigits(minutes);
    return upToMinutes + twoDigits(seconds % 60);
}

} // namespace vexa
