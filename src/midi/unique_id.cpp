#include "midi/unique_id.h"

#include <cstdint>

namespace vexa {

namespace {

/// FNV-1a, 64 bits, folded to 32.
std::uint32_t hashed(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x100000001b3;
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

/// The half of an ID that does not depend on the socket.
constexpr std::uint32_t upperHalf = 0xFFFF0000;

std::uint32_t anySocketBits(const MidiPort& port) {
    // A device's ports differ in the last characters of the text, which do not affect the upper
    // half.
    return hashed(port.identityInAnySocket + " in any socket") & upperHalf;
}

} // namespace

MidiUniqueId uniqueId(const MidiPort& port, const std::set<MidiUniqueId>& taken) {
    for (auto salted = port.identity;; salted += '+') {
        auto bits = hashed(salted);
        if (!port.identityInAnySocket.empty())
            bits = anySocketBits(port) | (bits & ~upperHalf);
        const auto id = static_cast<MidiUniqueId>(bits);
        if (id != 0 && !taken.contains(id))
            return id;
    }
}

bool mayHaveBeen(MidiUniqueId id, const MidiPort& port) {
    if (port.identityInAnySocket.empty())
        return false;
    const auto bits = static_cast<std::uint32_t>(id);
    if ((bits & upperHalf) == anySocketBits(port))
        return true;
    // Earlier versions hashed the whole identity, and included the socket only if there was a twin.
    return bits == hashed(port.identity) || bits == hashed(port.identityInAnySocket);
}

} // namespace vexa
