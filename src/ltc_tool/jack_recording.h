#pragma once

#include "tape/tape_contents.h"

#include <string>

namespace vexa::ltc_tool {

/// Listens at its own input on the running JACK server, and shows the timecode it reads, until
/// interrupted or until the server goes away. `source`: a port to connect to the input; empty for
/// none. Throws TapeError if no server runs or there is no such port.
TapeContents listenToJack(const std::string& source);

} // namespace vexa::ltc_tool
