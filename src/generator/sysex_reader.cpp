#include "generator/sysex_reader.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace vexa {

namespace {
constexpr std::uint8_t firstStatus = 0x80;
constexpr std::uint8_t sysExStart = 0xF0;
constexpr std::uint8_t sysExEnd = 0xF7;
constexpr std::uint8_t firstRealTime = 0xF8;
} // namespace

std::string hexText(const SysEx& message) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < std::min(message.size, SysEx::kept); ++i) {
        if (i > 0)
            text += ' ';
        text += digits[message.bytes[i] >> 4];
        text += digits[message.bytes[i] & 0xF];
    }
    if (message.size > SysEx::kept)
        text += " ... (" + std::to_string(message.size) + " bytes)";
    return text;
}

std::optional<SysEx> SysExReader::take(std::uint8_t byte) {
    if (byte >= firstRealTime)
        return std::nullopt;
    const bool inMessage = m_message.size > 0;
    if (inMessage && byte < firstStatus) {
        append(byte);
        return m_message.size == SysEx::longest ? finish() : std::nullopt;
    }
    if (inMessage && byte == sysExEnd) {
        append(byte);
        m_message.complete = true;
    }
    const auto ended = finish();
    if (byte == sysExStart)
        append(byte);
    return ended;
}

std::optional<SysEx> SysExReader::finish() {
    if (m_message.size == 0)
        return std::nullopt;
    return std::exchange(m_message, {});
}

void SysExReader::append(std::uint8_t byte) {
    if (m_message.size < SysEx::kept)
        m_message.bytes[m_message.size] = byte;
    ++m_message.size;
}

} // namespace vexa
