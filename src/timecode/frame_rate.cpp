#include "timecode/frame_rate.h"

#include <algorithm>

namespace vexa {

namespace {

constexpr bool eachStandsAtItsCode() {
    for (std::size_t row = 0; row < frameRates.size(); ++row)
        if (frameRates[row].code != row)
            return false;
    return true;
}
static_assert(eachStandsAtItsCode());

} // namespace

const FrameRate& frameRateForCode(std::uint64_t code) {
    return frameRates[code < frameRates.size() ? code : rate::fps30];
}

std::string_view longestRateName() {
    const auto letters = [](const FrameRate& rate) { return rate.name.size(); };
    return std::ranges::max_element(frameRates, {}, letters)->name;
}

} // namespace vexa
