#include "tape/tape_fault.h"

#include "timecode/frame_number.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace vexa {

namespace {

using Kind = TapeFault::Kind;

/// Stretches further apart than this are unrelated.
constexpr double longestPause = 1; // seconds

/// The accuracy of a stretch's length, which affects the speed of a short one.
constexpr double exactness = 0.0005; // seconds

Timecode frameBefore(const Timecode& time, const FrameRate& rate) {
    return timeOfFrame(frameNumber(time, rate) + framesADay(rate) - 1, rate);
}

/// How far one number is after another, the shorter way around the day.
std::int64_t signedDistance(const Timecode& from, const Timecode& to, const FrameRate& rate) {
    const auto day = static_cast<std::int64_t>(framesADay(rate));
    const auto way = static_cast<std::int64_t>(frameNumber(to, rate)) -
                     static_cast<std::int64_t>(frameNumber(from, rate));
    if (way > day / 2)
        return way - day;
    return way < -day / 2 ? way + day : way;
}

std::string framesText(std::uint64_t frames) {
    return std::to_string(frames) + (frames == 1 ? " frame" : " frames");
}

/// "3 frames unread, 01:00:12:08 to 01:00:12:10"
std::string framesText(const TapeFault& fault, const char* what) {
    auto text = framesText(fault.frames) + ' ' + what + ", " + timecodeText(fault.from);
    if (fault.frames > 1)
        text += " to " + timecodeText(fault.to);
    return text;
}

std::string number(double value, const char* unit) {
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.3f %s", value, unit);
    return text.data();
}

} // namespace

TapeFault unreadFault(const Stretch& stretch, const Hole& hole, std::size_t recording) {
    const auto first = frameNumber(stretch.first, *stretch.rate) + hole.firstFrame;
    TapeFault fault{Kind::unread, recording, hole.begin};
    fault.frames = hole.frames;
    fault.from = timeOfFrame(first, *stretch.rate);
    fault.to = timeOfFrame(first + hole.frames - 1, *stretch.rate);
    return fault;
}

std::optional<TapeFault> speedFault(const Stretch& stretch, const TapeContents& tape,
                                    double tolerance, std::size_t recording) {
    const double uncertain = exactness * tape.sampleRate / (stretch.end - stretch.begin);
    if (std::abs(stretch.speed) <= tolerance + uncertain)
        return {};
    TapeFault fault{Kind::speed, recording, stretch.begin};
    fault.from = stretch.first;
    fault.amount = stretch.speed;
    return fault;
}

bool followsAtOnce(const Stretch& before, const Stretch& after, std::uint32_t sampleRate) {
    return after.begin - before.end < longestPause * sampleRate;
}

TapeFault junctionFault(const Stretch& before, const Stretch& after, std::uint32_t sampleRate,
                        std::size_t recording) {
    TapeFault fault{Kind::pause, recording, before.end};
    const auto& rate = *before.rate;
    if (after.rate != &rate) {
        fault.kind = Kind::rate;
        fault.rate = after.rate;
        fault.from = after.first;
        return fault;
    }
    const auto way = signedDistance(before.last, after.first, rate);
    fault.from = after.first;
    if (way < 1) {
        fault.kind = Kind::back;
        fault.frames = static_cast<std::uint64_t>(1 - way);
    } else if (way > 1) {
        fault.kind = Kind::missing;
        fault.frames = static_cast<std::uint64_t>(way - 1);
        fault.from = advanced(before.last, 1, rate);
        fault.to = frameBefore(after.first, rate);
    }
    const double excess = (after.begin - before.end) / sampleRate -
                          static_cast<double>(fault.frames) * rate.frameInterval;
    if (way == 1 || (way > 1 && excess > rate.frameInterval / 2)) {
        fault.kind = Kind::pause;
        fault.from = after.first;
        fault.amount = excess;
    }
    return fault;
}

std::vector<TapeFault> faultsOf(std::span<const TapeContents> tapes, double speedTolerance) {
    std::vector<TapeFault> faults;
    for (std::size_t recording = 0; recording < tapes.size(); ++recording) {
        const auto& tape = tapes[recording];
        const Stretch* last = nullptr;
        for (const auto& stretch : tape.stretches) {
            if (last && followsAtOnce(*last, stretch, tape.sampleRate))
                faults.push_back(junctionFault(*last, stretch, tape.sampleRate, recording));
            if (const auto fault = speedFault(stretch, tape, speedTolerance, recording))
                faults.push_back(*fault);
            for (const auto& hole : stretch.holes)
                faults.push_back(unreadFault(stretch, hole, recording));
            last = &stretch;
        }
    }
    return faults;
}

std::string text(const TapeFault& fault) {
    switch (fault.kind) {
    case Kind::unread:
        return framesText(fault, "unread");
    case Kind::missing:
        return framesText(fault, "missing");
    case Kind::back:
        return "back by " + framesText(fault.frames) + ", to " + timecodeText(fault.from);
    case Kind::pause:
        return "stands still for " + number(fault.amount, "s") + " before " +
               timecodeText(fault.from) +
               (fault.frames > 0 ? ", without " + framesText(fault.frames) : "");
    case Kind::late:
        return "begins " + framesText(fault.frames) + " late, at " + timecodeText(fault.from);
    case Kind::early:
        return "ends " + framesText(fault.frames) + " early, after " + timecodeText(fault.to);
    case Kind::rate:
        return std::string(fault.rate->name) + " from " + timecodeText(fault.from) + " on";
    case Kind::speed:
        return number(std::abs(fault.amount) * 100, "%") +
               (fault.amount > 0 ? " too fast" : " too slow");
    case Kind::runOn:
        break;
    }
    return "runs on for " + framesText(fault.frames);
}

} // namespace vexa
