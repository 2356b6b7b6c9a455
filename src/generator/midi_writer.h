#pragma once

#include <cstdint>
#include <span>

namespace vexa {

/// Takes MIDI messages that go out.
class MidiWriter {
public:
    /// A message for so many samples after now. Calls come in the order of time.
    virtual void write(std::uint64_t samples, std::span<const std::uint8_t> message) = 0;

protected:
    ~MidiWriter() = default;
};

} // namespace vexa
