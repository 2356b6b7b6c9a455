#include "timecode/frame_number.h"

namespace vexa {

namespace {
constexpr std::uint64_t droppedAMinute = 2; ///< except in every tenth minute

std::uint64_t framesASecond(const FrameRate& rate) {
    return static_cast<std::uint64_t>(rate.frameCount);
}

std::uint64_t dropped(std::uint64_t minutes, const FrameRate& rate) {
    return rate.dropFrame ? droppedAMinute * (minutes - minutes / 10) : 0;
}
} // namespace

std::uint64_t frameNumber(const Timecode& time, const FrameRate& rate) {
    const auto minutes = time.hours * 60 + time.minutes;
    const bool isLeftOut = rate.dropFrame && isDropped(time);
    return (minutes * 60 + time.seconds) * framesASecond(rate) +
           (isLeftOut ? droppedAMinute : time.frames) - dropped(minutes, rate);
}

Timecode timeOfFrame(std::uint64_t number, const FrameRate& rate) {
    const auto fps = framesASecond(rate);
    number %= framesADay(rate);
    if (rate.dropFrame) {
        const auto tenMinutes = frameNumber({0, 10, 0, 0}, rate);
        const auto minute = frameNumber({0, 2, 0, 0}, rate) - frameNumber({0, 1, 0, 0}, rate);
        // The first of the ten minutes is the longest.
        const auto rest = number % tenMinutes;
        const auto minutes = rest < 60 * fps ? 0 : 1 + (rest - 60 * fps) / minute;
        number += dropped(number / tenMinutes * 10 + minutes, rate);
    }
    const auto seconds = number / fps;
    return {seconds / 3600, seconds / 60 % 60, seconds % 60, number % fps};
}

std::uint64_t framesADay(const FrameRate& rate) { return frameNumber({24, 0, 0, 0}, rate); }

} // namespace vexa
