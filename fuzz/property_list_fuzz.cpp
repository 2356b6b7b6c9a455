#include "property_list_round_trip.h"

#include <cstddef>
#include <cstdint>

/// Files of either form, as raw bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    vexa::checkRoundTrip({bytes, static_cast<qsizetype>(size)});
    return 0;
}
