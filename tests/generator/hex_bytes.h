#pragma once

#include "generator/sysex_reader.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

/// The bytes of a text like "F0 7D 42".
inline std::vector<std::uint8_t> bytesFromHex(const std::string& text) {
    std::vector<std::uint8_t> bytes;
    std::istringstream words(text);
    for (unsigned byte = 0; words >> std::hex >> byte;)
        bytes.push_back(static_cast<std::uint8_t>(byte));
    return bytes;
}

/// The messages in the bytes, including one that the end cuts off.
inline std::vector<vexa::SysEx> messagesIn(const std::string& hex) {
    vexa::SysExReader reader;
    std::vector<vexa::SysEx> messages;
    for (const auto byte : bytesFromHex(hex))
        if (const auto message = reader.take(byte))
            messages.push_back(*message);
    if (const auto message = reader.finish())
        messages.push_back(*message);
    return messages;
}
