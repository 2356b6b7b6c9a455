#include "midi/device_messages.h"

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
    switch (syncType) {
    case sync::fsk:
        return 8;
    case sync::dtl:
        return static_cast<std::uint8_t>(frameRate + 4);
    default:
        return static_cast<std::uint8_t>(frameRate);
    }
}

DeviceMessage setupMessage(PackedTimecode start, std::uint64_t frameRate, std::uint64_t syncType) {
    return message(start, modeCode(frameRate, syncType));
}

DeviceMessage startMessage(PackedTimecode start) { return message(start, 0x7F); }

DeviceMessage stopMessage() { return message(0, 0x00); }

} // namespace vexa
