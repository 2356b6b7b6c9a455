#include "timecode/frame_count.h"

#include "timecode/frame_number.h"

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
    return frameNumber(time, rate);
}

} // namespace

std::optional<std::uint64_t> framesUntil(std::uint64_t now, std::uint64_t stop,
                                         const FrameRate& rate) {
    const auto next = advanced(static_cast<PackedTimecode>(now), 1, rate);
    if (next >= stop)
        return 1;
    if (stop > UINT32_MAX || !isValid(unpack(next), rate))
        return {};
    const auto beforeStop = framesBefore(unpack(static_cast<PackedTimecode>(stop)), rate);
    if (beforeStop >= framesADay(rate))
        return {};
    return 1 + beforeStop - framesBefore(unpack(next), rate);
}

} // namespace vexa
