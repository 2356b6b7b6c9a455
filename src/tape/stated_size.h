#pragma once

#include <cstdint>
#include <optional>

namespace vexa {

/// The size that a sound file states in its header, in bytes: of WAV, RF64, W64 and AIFF. Nothing
/// for other formats, and for files whose recorder did not know their length in advance.
std::optional<std::uint64_t> statedSize(int file);

} // namespace vexa
