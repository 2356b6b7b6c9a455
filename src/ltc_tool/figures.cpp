#include "ltc_tool/figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace vexa::ltc_tool {

namespace {
template<typename... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}
} // namespace

std::string placeText(double sample, std::uint32_t sampleRate) {
    const auto place = std::max(std::llround(sample / sampleRate * 1000), 0LL);
    return formatted("%lld:%02lld:%02lld.%03lld", place / 3600000, place / 60000 % 60,
                     place / 1000 % 60, place % 1000);
}

std::string levelText(double peak) { return formatted("%.1f", 20 * std::log10(peak)); }

std::string percentText(double speed) {
    const auto thousandths = std::llround(speed * 100'000);
    return formatted("%+.3f", static_cast<double>(thousandths) / 1000);
}

std::string userBitsText(LtcUserBits bits) { return formatted("%08X", unsigned{bits}); }

} // namespace vexa::ltc_tool
