#include "text/duration_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vexa {

namespace {

std::string textOfSeconds(double wholeSeconds) {
    constexpr double longest = 1e12;
    const auto seconds = static_cast<std::uint64_t>(std::clamp(wholeSeconds, 0.0, longest));
    const auto twoDigits = [](std::uint64_t value) {
        return (value < 10 ? ":0" : ":") + std::to_string(value);
    };
    const auto hours = seconds / 3600;
    const auto minutes = seconds / 60 % 60;
    const auto upToMinutes =
        hours == 0 ? std::to_string(minutes) : std::to_string(hours) + twoDigits(minutes);
    return upToMinutes + twoDigits(seconds % 60);
}

} // namespace

std::string durationText(std::chrono::duration<double> time) {
    return textOfSeconds(std::round(time.count()));
}

std::string timeLeftText(std::chrono::duration<double> time) {
    constexpr double rounding = 1e-6; // rounding error of summed frames; far below one frame
    return textOfSeconds(std::ceil(time.count() - rounding));
}

} // namespace vexa
