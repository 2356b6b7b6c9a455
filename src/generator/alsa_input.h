#pragma once

#include "generator/midi_input.h"

#include <memory>

namespace vexa {

/// A port of the ALSA sequencer; none where the sequencer does not open.
std::unique_ptr<MidiInput> openAlsaInput();

} // namespace vexa
