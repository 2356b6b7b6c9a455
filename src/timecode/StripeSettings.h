#pragma once

#include <cstdint>

namespace vexa {

/// The settings of one stripe. Any value is legal, as files are not checked.
struct StripeSettings {
    std::uint64_t startTime = 0; ///< packed timecode in the low 32 bits
    std::uint64_t stopTime = 0;  ///< packed timecode in the low 32 bits
    std::uint64_t frameRate = 0; ///< frame-rate code
    std::uint64_t syncType = 0;  ///< sync-type code

    bool operator==(const StripeSettings&) const = default;
};

} // namespace vexa
