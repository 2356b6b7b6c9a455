#pragma once

#include "midi/MidiSystem.h"

#include <memory>
#include <span>
#include <string_view>

namespace vexa {

/// A MIDI system that the operator can ask for by name.
struct MidiChoice {
    std::string_view name;
    bool hasDestinations; ///< false: nothing is meant to be sent
    std::unique_ptr<MidiSystem> (*open)();
};

std::span<const MidiChoice> midiChoices();

/// Opens the system that was chosen; where none was, ALSA if its sequencer opens, else JACK. One
/// that is not there is used once it comes.
std::unique_ptr<MidiSystem> openMidiSystem(const MidiChoice* choice);

} // namespace vexa
