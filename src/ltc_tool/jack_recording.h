#pragma once

#include "tape/tape_contents.h"

#include <string>

namespace vexa::ltc_tool {

/// Listens at an input of its own on the JACK server that runs, until interrupted or until the
/// server goes away, and shows the time that it reads. `source`: a port to connect to it; none when
/// empty. Throws TapeError where no server runs, or where there is no such port.
TapeContents listenToJack(const std::string& source);

} // namespace vexa::ltc_tool
