#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vexa {

/// One System Exclusive message as it came over the cable, whole or not.
struct SysEx {
    static constexpr std::size_t kept = 32;
    static constexpr std::size_t longest = 0x20000; ///< 42 s on a DIN cable

    std::array<std::uint8_t, kept> bytes{}; ///< the first of its bytes, 0xF0 and 0xF7 included
    std::size_t size = 0;                   ///< how many it had, which may be more than are kept
    bool complete = false;                  ///< whether 0xF7 ended it
};

/// The kept bytes as "F0 7D 42"; what was not kept shows as "... (100 bytes)".
std::string hexText(const SysEx& message);

/// Finds the System Exclusive messages in a stream of MIDI bytes, however the stream is cut into
/// pieces. Real-time messages may stand inside one (MIDI 1.0); all else that is not System
/// Exclusive is passed over. Memory is bounded whatever comes.
class SysExReader {
public:
    /// The message that this byte brings to an end, if any: 0xF7 completes it, any other status
    /// byte cuts it off. One that goes on is cut off at the longest size, and the rest passed over.
    std::optional<SysEx> take(std::uint8_t byte);

    /// The message cut off by the end of the stream, if one was under way. The next byte begins a
    /// new stream.
    std::optional<SysEx> finish();

private:
    void append(std::uint8_t byte);

    SysEx m_message; ///< empty between messages
};

} // namespace vexa
