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

/// The half of an ID that stays the same in any socket.
constexpr std::uint32_t upperHalf = 0xFFFF0000;

std::uint32_t anySocketBits(const MidiPort& port) {
    // The last characters of a text, which tell a device's ports apart, do not reach the upper
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
    // Earlier versions named the socket where a twin was there, and hashed the whole.
    return bits == hashed(port.identity) || bits == hashed(port.identityInAnySocket);
}

} // namespace vexa
