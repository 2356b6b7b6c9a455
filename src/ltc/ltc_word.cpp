#include "ltc/ltc_word.h"

namespace vexa {

namespace {
constexpr std::size_t dropFrameBit = 10;
constexpr std::uint64_t syncWord = 0b1011'1111'1111'1100; // lowest bit first
constexpr std::size_t syncWordBit = 64;

/// Bit 27 at film and 525-line rates, bit 59 at 625-line rates.
std::size_t polarityBit(const FrameRate& rate) { return rate.frameCount == 25 ? 59 : 27; }

/// A field in BCD: the units, then the tens after a user group.
std::uint64_t digits(std::uint64_t field) { return field % 10 | field / 10 << 8; }
} // namespace

LtcWord ltcWord(const Timecode& time, const FrameRate& rate, LtcUserBits userBits) {
    std::uint64_t address = digits(time.frames) | digits(time.seconds) << 16 |
                            digits(time.minutes) << 32 | digits(time.hours) << 48;
    for (std::size_t group = 0; group < 8; ++group)
        address |= std::uint64_t{userBits >> 4 * group & 0xF} << (8 * group + 4);

    LtcWord word = LtcWord(address) | LtcWord(syncWord) << syncWordBit;
    word.set(dropFrameBit, rate.dropFrame);
    word.set(polarityBit(rate), word.count() % 2 != 0);
    return word;
}

} // namespace vexa
