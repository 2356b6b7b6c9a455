#include "app/midi_choice.h"

#include "midi/BackgroundMidiSystem.h"
#include "midi/alsa/AlsaMidiDriver.h"
#include "midi/jack/JackMidiDriver.h"
#include "midi/none/NoMidiSystem.h"

namespace vexa {

namespace {

std::unique_ptr<MidiDriver> makeDriver(MidiChoice choice) {
    if (choice == MidiChoice::Alsa ||
        (choice == MidiChoice::Automatic && AlsaMidiDriver::isAvailable()))
        return std::make_unique<AlsaMidiDriver>();
    return std::make_unique<JackMidiDriver>();
}

} // namespace

std::unique_ptr<MidiSystem> openMidiSystem(MidiChoice choice) {
    if (choice == MidiChoice::None)
        return std::make_unique<NoMidiSystem>();
    return std::make_unique<BackgroundMidiSystem>([choice] { return makeDriver(choice); });
}

} // namespace vexa
