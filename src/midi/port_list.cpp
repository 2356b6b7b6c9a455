#include "midi/port_list.h"

#include <algorithm>

namespace vexa {

void putMidiThroughLast(std::vector<MidiPort>& ports) {
    std::stable_partition(ports.begin(), ports.end(), [](const MidiPort& port) {
        return port.name.find("Midi Through") == std::string::npos &&
               port.deviceName.find("Midi Through") == std::string::npos;
    });
}

std::string withoutLeadingName(const std::string& name, const std::string& leading) {
    const auto prefix = leading + ' ';
    return name.starts_with(prefix) ? name.substr(prefix.size()) : name;
}

} // namespace vexa
