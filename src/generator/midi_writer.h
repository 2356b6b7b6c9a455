#pragma once

#include <cstdint>
#include <span>

namespace vexa {

/// Accepts outgoing MIDI messages.
class MidiWriter {
public:
    /// Sends a message that many samples from now. Calls come in order of time.
    virtual void write(std::uint64_t samples, std::span<const std::uint8_t> message) = 0;

protected:
    ~MidiWriter() = default;
};

} // namespace vexa
