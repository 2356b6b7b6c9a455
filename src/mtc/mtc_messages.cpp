#include "mtc/mtc_messages.h"

namespace vexa {

namespace {
/// Frames, seconds, minutes, and hours with the rate in the bits above.
std::array<std::uint8_t, 4> fields(const Timecode& time, const FrameRate& rate) {
    const auto hours = time.hours | std::uint64_t{rate.mtcBits} << 5;
    return {static_cast<std::uint8_t>(time.frames), static_cast<std::uint8_t>(time.seconds),
            static_cast<std::uint8_t>(time.minutes), static_cast<std::uint8_t>(hours)};
}
} // namespace

MtcFullFrame mtcFullFrame(const Timecode& time, const FrameRate& rate) {
    const auto [frames, seconds, minutes, hours] = fields(time, rate);
    return {0xF0, 0x7F, 0x7F, 0x01, 0x01, hours, minutes, seconds, frames, 0xF7};
}

MtcQuarterFrame mtcQuarterFrame(const Timecode& time, const FrameRate& rate, unsigned piece) {
    const auto field = fields(time, rate)[piece / 2];
    const auto nibble = piece % 2 == 0 ? field & 0xF : field >> 4;
    return {0xF1, static_cast<std::uint8_t>(piece << 4 | static_cast<unsigned>(nibble))};
}

} // namespace vexa
