#include "timecode/timecode.h"

#include <array>

namespace vexa {

Timecode unpack(PackedTimecode value) {
    return {value >> 24, (value >> 16) & 0xFF, (value >> 8) & 0xFF, value & 0xFF};
}

PackedTimecode pack(const Timecode& time) {
    return static_cast<PackedTimecode>(time.hours << 24 | time.minutes << 16 | time.seconds << 8 |
                                       time.frames);
}

std::string timecodeText(const Timecode& time) {
    std::string text;
    text.reserve(11);
    for (const auto field : {time.hours, time.minutes, time.seconds, time.frames}) {
        if (!text.empty())
            text += ':';
        text += static_cast<char>('0' + field / 10);
        text += static_cast<char>('0' + field % 10);
    }
    return text;
}

std::string timecodeText(std::uint64_t packed) {
    return timecodeText(unpack(static_cast<PackedTimecode>(packed)));
}

bool isDropped(const Timecode& time) {
    return time.minutes % 10 != 0 && time.seconds == 0 && time.frames < 2;
}

std::string refusal(const Timecode& time, const FrameRate& rate) {
    const auto none = [](std::string_view unit, std::uint64_t value) {
        return "no " + std::string(unit) + ' ' + std::to_string(value);
    };
    const auto atRate = [&] { return " at " + std::string(rate.name); };
    if (time.hours > 23)
        return none("hour", time.hours);
    if (time.minutes > 59)
        return none("minute", time.minutes);
    if (time.seconds > 59)
        return none("second", time.seconds);
    if (time.frames >= static_cast<std::uint64_t>(rate.frameCount))
        return none("frame", time.frames) + atRate();
    if (rate.dropFrame && isDropped(time))
        return none("frame", time.frames) + " in second 0 of minute " +
               std::to_string(time.minutes) + atRate();
    return {};
}

bool isValid(const Timecode& time, const FrameRate& rate) { return refusal(time, rate).empty(); }

Timecode advanced(Timecode time, std::uint64_t frames, const FrameRate& rate) {
    const auto carry = [](std::uint64_t& field, std::uint64_t& next, std::uint64_t limit) {
        next += field / limit;
        field %= limit;
    };
    // A field that does not overflow must leave the one above it alone: hours out of range, as a
    // rejected entry can leave them, stay until something carries into them.
    const auto fps = static_cast<std::uint64_t>(rate.frameCount);
    time.frames += frames;
    if (time.frames >= fps) {
        carry(time.frames, time.seconds, fps);
        if (time.seconds >= 60) {
            carry(time.seconds, time.minutes, 60);
            if (time.minutes >= 60) {
                carry(time.minutes, time.hours, 60);
                time.hours %= 24;
            }
        }
    }
    if (rate.dropFrame && isDropped(time))
        time.frames += 2;
    return time;
}

PackedTimecode advanced(PackedTimecode time, std::uint64_t frames, const FrameRate& rate) {
    return pack(advanced(unpack(time), frames, rate));
}

std::optional<Timecode> timecodeFromText(std::string_view text) {
    if (text.size() != 11)
        return std::nullopt;
    std::array<std::uint64_t, 4> fields{};
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (i % 3 == 2) {
            if (c != ':')
                return std::nullopt;
        } else if (c < '0' || c > '9') {
            return std::nullopt;
        } else {
            fields[i / 3] = fields[i / 3] * 10 + static_cast<std::uint64_t>(c - '0');
        }
    }
    return Timecode{fields[0], fields[1], fields[2], fields[3]};
}

} // namespace vexa
