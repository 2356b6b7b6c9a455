#include "midi/port_list.h"

#include <algorithm>
#include <map>
#include <set>

namespace vexa {

namespace {

/// FNV-1a, 64 bits, folded to 32.
MidiUniqueId hashed(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x100000001b3;
    return static_cast<MidiUniqueId>(static_cast<std::uint32_t>(hash ^ hash >> 32));
}

} // namespace

void putMidiThroughLast(std::vector<MidiPort>& ports) {
    std::stable_partition(ports.begin(), ports.end(), [](const MidiPort& port) {
        return port.name.find("Midi Through") == std::string::npos &&
               port.deviceName.find("Midi Through") == std::string::npos;
    });
}

void numberRepeatedIdentities(std::vector<MidiPort>& ports) {
    std::map<std::string, int> seen;
    for (auto& port : ports)
        if (const int count = ++seen[port.identity]; count > 1)
            port.identity += '#' + std::to_string(count);
}

std::string withoutLeadingName(const std::string& name, const std::string& leading) {
    const auto prefix = leading + ' ';
    return name.starts_with(prefix) ? name.substr(prefix.size()) : name;
}

std::vector<MidiUniqueId> uniqueIds(const std::vector<MidiPort>& ports) {
    std::vector<MidiUniqueId> ids;
    std::set<MidiUniqueId> taken{0};
    for (const auto& port : ports) {
        auto salted = port.identity;
        auto id = hashed(salted);
        while (!taken.insert(id).second)
            id = hashed(salted += '+');
        ids.push_back(id);
    }
    return ids;
}

} // namespace vexa
