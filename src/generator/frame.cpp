#include "generator/frame.h"

#include "generator/sysex_reader.h"
#include "timecode/device_modes.h"
#include "timecode/sync_type.h"

namespace vexa {

namespace {
constexpr std::size_t frameSize = 9;
constexpr std::uint8_t manufacturerId = 0x7D;
constexpr std::uint8_t deviceId = 0x42;

std::string hexByte(std::uint8_t byte) {
    SysEx one;
    one.bytes[0] = byte;
    one.size = 1;
    return hexText(one);
}

std::optional<Mode> modeForCode(std::uint8_t code) {
    if (code == device_mode::fsk)
        return Mode{sync::fsk, std::nullopt};
    for (const auto& rate : frameRates) {
        if (code == rate.mtcMode)
            return Mode{sync::mtc, rate.code};
        if (code == rate.dtlMode)
            return Mode{sync::dtl, rate.code};
    }
    return std::nullopt;
}

/// The fault of the message's envelope, if any. Its content is not checked.
std::optional<Fault> envelopeFault(const SysEx& message) {
    const auto& bytes = message.bytes;
    const auto sizeBeforeEnd = message.complete ? message.size - 1 : message.size;
    if (sizeBeforeEnd > 1 && bytes[1] != manufacturerId)
        return Fault::manufacturer;
    if (sizeBeforeEnd > 2 && bytes[2] != deviceId)
        return Fault::device;
    if (!message.complete)
        return Fault::cutOff;
    if (message.size != frameSize)
        return Fault::size;
    return std::nullopt;
}

Timecode timeIn(const SysEx& message) {
    const auto& bytes = message.bytes;
    return {bytes[3], bytes[4], bytes[5], bytes[6]};
}

std::uint8_t codeIn(const SysEx& message) { return message.bytes[7]; }

const FrameRate& rateToCheckBy(const std::optional<Mode>& mode) {
    return frameRateForCode(mode && mode->rate ? *mode->rate : rate::fps30);
}

/// Names the fields that are invalid at the mode's rate, or at any rate if it is unknown.
std::string timeFaultText(const Timecode& time, const std::optional<Mode>& mode) {
    const auto& rate = rateToCheckBy(mode);
    std::string fault;
    const auto check = [&](const char* field, std::uint64_t value, std::uint64_t limit) {
        if (value >= limit)
            fault += (fault.empty() ? "" : ", ") + std::string(field) + std::to_string(value);
    };
    check("hours ", time.hours, 24);
    check("minutes ", time.minutes, 60);
    check("seconds ", time.seconds, 60);
    check("frames ", time.frames, static_cast<std::uint64_t>(rate.frameCount));
    if (fault.empty())
        fault = "dropped number " + timecodeText(time);
    return fault + " at " + (mode && mode->rate ? std::string(rate.name) : "any rate");
}
} // namespace

std::string modeText(const Mode& mode) {
    const std::string sync(syncTypeName(mode.sync));
    if (!mode.rate)
        return sync + ", rate unknown";
    return std::string(frameRateForCode(*mode.rate).name) + " " + sync;
}

Frame decodedFrame(const SysEx& message) {
    if (const auto fault = envelopeFault(message))
        return MalformedFrame{*fault};
    const auto time = timeIn(message);
    const auto code = codeIn(message);
    if (code == 0 && time == Timecode{})
        return StopFrame{};
    const auto mode = modeForCode(code);
    if (!mode && code != device_mode::start)
        return MalformedFrame{Fault::modeCode};
    if (!isValid(time, rateToCheckBy(mode)))
        return MalformedFrame{Fault::time};
    if (!mode)
        return StartFrame{time};
    return SetupFrame{time, *mode};
}

std::string faultText(Fault fault, const SysEx& message) {
    switch (fault) {
    case Fault::manufacturer:
        return "manufacturer " + hexByte(message.bytes[1]) + ", not " + hexByte(manufacturerId);
    case Fault::device:
        return "device " + hexByte(message.bytes[2]) + ", not " + hexByte(deviceId);
    case Fault::cutOff:
        return "cut off after byte " + std::to_string(message.size);
    case Fault::size:
        return std::to_string(message.size) + " bytes, not " + std::to_string(frameSize);
    case Fault::modeCode:
        return "unknown mode code " + hexByte(codeIn(message));
    case Fault::time:
        break;
    }
    return timeFaultText(timeIn(message), modeForCode(codeIn(message)));
}

} // namespace vexa
