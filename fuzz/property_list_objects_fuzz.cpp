#include "property_list/BinaryFile.h"
#include "property_list_round_trip.h"

#include <cstddef>
#include <cstdint>

/// Objects of the binary form, with a matching table and trailer, which random bytes would hardly
/// produce. Input: the number of objects, their offsets in one byte each, and the objects.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0 || size - 1 < bytes[0])
        return 0;
    const std::string input(bytes + 1, bytes + size);
    const vexa::BinaryFile file{{}, 1, 1};
    vexa::checkRoundTrip(
        file.withTrailer("bplist00" + input.substr(bytes[0]), input.substr(0, bytes[0]), bytes[0]));
    return 0;
}
