#include "midi/TwinNumbers.h"

#include <algorithm>

namespace vexa {

void TwinNumbers::number(std::vector<MidiPort>& ports) {
    std::map<std::string, std::vector<MidiPort*>> twins;
    for (auto& port : ports)
        twins[port.identity].push_back(&port);
    for (const auto& [identity, present] : twins) {
        auto& known = m_presences[identity];
        if (known.size() == 1 && present.size() == 1)
            known.front() = present.front()->presence;
        for (auto* port : present) {
            const auto at = std::ranges::find(known, port->presence);
            const auto number = at - known.begin() + 1;
            if (at == known.end())
                known.push_back(port->presence);
            if (number > 1)
                port->identity += '#' + std::to_string(number);
        }
    }
}

} // namespace vexa
