#include "timecode/frame_count.h"

namespace vexa {

namespace {

/// Number of frames of the day before that time, which need not be valid. After the end of the day,
/// all of them count.
std::uint64_t framesBefore(Timecode time, const FrameRate& rate) {
    const auto fps = static_cast<std::uint64_t>(rate.frameCount);
    if (time.hours > 23)
        time = {24, 0, 0, 0};
    else if (time.minutes > 59)
        time = {time.hours + 1, 0, 0, 0};
    else if (time.seconds > 59)
        time = {time.hours, time.minutes + 1, 0, 0};
    else if (time.frames >= fps)
        time = {time.hours, time.minutes, time.seconds + 1, 0};
    const auto minutes = time.hours * 60 + time.minutes;
    const auto frames = (minutes * 60 + time.seconds) * fps + time.frames;
    if (!rate.dropFrame)
        return frames;
    const auto minutesWithDrop = minutes - minutes / 10;
    const auto stillToBeDropped = isDropped(time) ? 2 - time.frames : 0;
    return frames - 2 * minutesWithDrop + stillToBeDropped;
}

} // namespace

std::optional<std::uint64_t> framesUntil(std::uint64_t now, std::uint64_t stop,
                                         const FrameRate& rate) {
    const auto next = advanced(static_cast<PackedTimecode>(now), 1, rate);
    if (next >= stop)
        return 1;
    const Timecode endOfDay{24, 0, 0, 0};
    const auto stopTime = unpack(static_cast<PackedTimecode>(stop));
    const bool comesWithinTheDay =
        stop <= UINT32_MAX && framesBefore(stopTime, rate) < framesBefore(endOfDay, rate);
    if (!isValid(unpack(next), rate) || !comesWithinTheDay)
        return {};
    return 1 + framesBefore(stopTime, rate) - framesBefore(unpack(next), rate);
}

} // namespace vexa
