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

/// What is wrong, and where. Which fields count depends on the kind.
struct TapeFault {
    enum class Kind {
        Unread,  ///< frames that cannot be read, while the time goes on
        Missing, ///< frames that are not on the tape: the numbers jump forwards
        Back,    ///< the numbers jump back by so many frames
        Pause,   ///< the numbers go on after some time without timecode
        Late,    ///< a row's first frames are missing
        Early,   ///< a row's last frames are missing
        Rate,    ///< another than the row's
        Speed,
        RunOn, ///< told, but no fault: frames after the end of a row
    };

    Kind kind;
    std::size_t recording = 0;
    double place = 0; ///< in samples
    Timecode from{};  ///< the first of the frames, or the one that a jump leads to
    Timecode to{};    ///< the last of the frames
    std::uint64_t frames = 0;
    double amount = 0; ///< of a pause in seconds, of a speed as in Stretch
    const FrameRate* rate = nullptr;

    bool isFault() const { return kind != Kind::RunOn; }
};

/// The hole as a fault.
TapeFault unreadFault(const Stretch& stretch, const Hole& hole, std::size_t recording);

/// None where the speed is right.
std::optional<TapeFault> speedFault(const Stretch& stretch, const TapeContents& tape,
                                    double tolerance, std::size_t recording);

/// Whether a stretch of a recording begins less than a second after another has ended: then they
/// were one, or were put together.
bool followsAtOnce(const Stretch& before, const Stretch& after, std::uint32_t sampleRate);

/// What happens where one stretch of a recording leads to the next.
TapeFault junctionFault(const Stretch& before, const Stretch& after, std::uint32_t sampleRate,
                        std::size_t recording);

/// Faults of the timecode itself: holes, jumps between stretches of which one follows the other at
/// once, and speeds that are off by more than the tolerance, a part of 1.
std::vector<TapeFault> faultsOf(std::span<const TapeContents> tapes, double speedTolerance);

/// "7 frames missing, 01:00:12:08 to 01:00:12:14"
std::string text(const TapeFault& fault);

} // namespace vexa
