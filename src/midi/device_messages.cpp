#include "midi/device_messages.h"

#include "timecode/device_modes.h"
#include "timecode/sync_type.h"

namespace vexa {

namespace {

DeviceMessage message(PackedTimecode time, std::uint8_t code) {
    const auto [hours, minutes, seconds, frames] = unpack(time);
    const auto byte = [](std::uint64_t field) { return static_cast<std::uint8_t>(field); };
    return {0xF0, 0x7D, 0x42, byte(hours), byte(minutes), byte(seconds), byte(frames), code, 0xF7};
}

} // namespace

std::uint8_t modeCode(std::uint64_t frameRate, std::uint64_t syncType) {
    if (syncType == sync::fsk)
        return device_mode::fsk;
    const bool isDtl = syncType == sync::dtl;
    if (frameRate < frameRates.size())
        return isDtl ? frameRates[frameRate].dtlMode : frameRates[frameRate].mtcMode;
    constexpr std::uint64_t dtlOffset = 4;
    return static_cast<std::uint8_t>(isDtl ? frameRate + dtlOffset : frameRate);
}

DeviceMessage setupMessage(PackedTimecode start, std::uint64_t frameRate, std::uint64_t syncType) {
    return message(start, modeCode(frameRate, syncType));
}

DeviceMessage startMessage(PackedTimecode start) { return message(start, device_mode::start); }

DeviceMessage stopMessage() { return message(0, 0x00); }

} // namespace vexa
