#pragma once

#include "midi/MidiDriver.h"

#include <map>
#include <string>
#include <vector>

namespace vexa {

/// Tells ports with the same identity apart while the program runs, such as those of two programs
/// with the same name. A new port may be any of them. It never gets another's number, so messages
/// for one port do not reach its twin.
class TwinNumbers {
public:
    /// Makes the identities in one reading unique: the second becomes "identity#2". A port keeps
    /// its number while it is present. A port that never had a twin keeps it even when it comes
    /// back.
    void number(std::vector<MidiPort>& ports);

private:
    std::map<std::string, std::vector<std::string>> m_presences; ///< by identity; the first is
                                                                 ///< number 1
};

} // namespace vexa
