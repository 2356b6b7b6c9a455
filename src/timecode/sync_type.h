#pragma once

#include <cstdint>
#include <string_view>

namespace vexa {

/// Sync-type codes of controls, list items and device messages. Any other code is legal and means
/// MIDI time code.
namespace sync {
inline constexpr std::uint64_t mtc = 0; ///< MIDI time code
inline constexpr std::uint64_t dtl = 1; ///< direct time lock
inline constexpr std::uint64_t fsk = 2; ///< frequency-shift keying; carries no frame rate
inline constexpr std::uint64_t count = 3;
} // namespace sync

/// The name shown to the operator: "MTC".
std::string_view syncTypeName(std::uint64_t code);

} // namespace vexa
