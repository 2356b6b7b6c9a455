#include "timecode/sync_type.h"

namespace vexa {

std::string_view syncTypeName(std::uint64_t code) {
    switch (code) {
    case sync::dtl:
        return "DTL";
    case sync::fsk:
        return "FSK";
    default:
        return "MTC";
    }
}

} // namespace vexa
