#pragma once

#include "generator/midi_input.h"

#include <memory>

namespace vexa {

/// A port of a JACK server; none where no server runs. Does not start one.
std::unique_ptr<MidiInput> openJackInput();

} // namespace vexa
