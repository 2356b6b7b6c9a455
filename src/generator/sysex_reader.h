#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vexa {

/// One System Exclusive message as received, complete or not.
struct SysEx {
    static constexpr std::size_t kept = 32;
    static constexpr std::size_t longest = 0x20000; ///< 42 s on a DIN cable

    std::array<std::uint8_t, kept> bytes{}; ///< the first bytes, including 0xF0 and 0xF7
    std::size_t size = 0;                   ///< bytes received; may exceed those kept
    bool complete = false;                  ///< ended by 0xF7
};

/// The kept bytes as "F0 7D 42". If there were more, adds "... (100 bytes)".
std::string hexText(const SysEx& message);

/// Finds System Exclusive messages in a stream of MIDI bytes, wherever the stream is split.
/// Real-time messages may occur inside them (MIDI 1.0). Skips everything else, and uses bounded
/// memory.
class SysExReader {
public:
    /// Returns the message that this byte ends, if any: 0xF7 completes it, any other status byte
    /// cuts it off. A message is cut off at the longest size, and the rest of it is skipped.
    std::optional<SysEx> take(std::uint8_t byte);

    /// Returns the message that the end of the stream cuts off, if any. The next byte starts a new
    /// stream.
    std::optional<SysEx> finish();

private:
    void append(std::uint8_t byte);

    SysEx m_message; ///< empty between messages
};

} // namespace vexa
