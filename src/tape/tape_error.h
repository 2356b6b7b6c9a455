#pragma once

#include <stdexcept>

namespace vexa {

/// Why a sound file cannot be read or written, in one line for the user.
class TapeError : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

} // namespace vexa
