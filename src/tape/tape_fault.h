#pragma once

#include "tape/tape_contents.h"
#include "timecode/timecode.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vexa {

/// A fault and its place. The kind decides which fields are used.
struct TapeFault {
    enum class Kind {
        unread,  ///< unreadable frames, while time continues
        missing, ///< frames missing from the tape: the numbers jump forwards
        back,    ///< the numbers jump back by that many frames
        pause,   ///< the numbers continue after some time without timecode
        late,    ///< a row's first frames are missing
        early,   ///< a row's last frames are missing
        rate,    ///< differs from the row's
        speed,
        runOn, ///< reported, but not a fault: frames after the end of a row
    };

    Kind kind;
    std::size_t recording = 0;
    double place = 0; ///< in samples
    Timecode from{};  ///< the first of the frames, or the target of a jump
    Timecode to{};    ///< the last of the frames
    std::uint64_t frames = 0;
    double amount = 0; ///< a pause in seconds, or a speed as in Stretch
    const FrameRate* rate = nullptr;

    bool isFault() const { return kind != Kind::runOn; }
};

/// The fault for a hole.
TapeFault unreadFault(const Stretch& stretch, const Hole& hole, std::size_t recording);

/// None if the speed is right.
std::optional<TapeFault> speedFault(const Stretch& stretch, const TapeContents& tape,
                                    double tolerance, std::size_t recording);

/// Whether a stretch begins less than a second after another in the same recording has ended. Then
/// they were one stretch, or were joined.
bool followsAtOnce(const Stretch& before, const Stretch& after, std::uint32_t sampleRate);

/// The fault between two consecutive stretches of a recording.
TapeFault junctionFault(const Stretch& before, const Stretch& after, std::uint32_t sampleRate,
                        std::size_t recording);

/// Faults of the timecode itself: holes, jumps between stretches that follow each other at once,
/// and speeds that deviate by more than the tolerance, a fraction of 1.
std::vector<TapeFault> faultsOf(std::span<const TapeContents> tapes, double speedTolerance);

/// "7 frames missing, 01:00:12:08 to 01:00:12:14"
std::string text(const TapeFault& fault);

} // namespace vexa
