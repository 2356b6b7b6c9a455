#pragma once

#include "midi/MidiDriver.h"

#include <map>
#include <string>
#include <vector>

namespace vexa {

/// Tells ports of one identity apart while the program runs, such as those of two programs of one
/// name. Which of them a newcomer is, nobody knows: it never gets the number of another, so that
/// what was meant for one does not reach its twin.
class TwinNumbers {
public:
    /// Makes the identities of one reading differ: the second of an identity becomes "identity#2".
    /// A port keeps its number as long as it is present. Where there was never more than one, the
    /// one that comes is the one that went.
    void number(std::vector<MidiPort>& ports);

private:
    std::map<std::string, std::vector<std::string>> m_presences; ///< by identity; first is number 1
};

} // namespace vexa
