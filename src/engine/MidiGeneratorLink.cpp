#include "engine/MidiGeneratorLink.h"

#include "midi/Vexa_MIDI_Manager.h"

namespace vexa {

void MidiGeneratorLink::stop() { Vexa_MIDI_Manager::sharedMidiManager().sendStopMessage(); }

void MidiGeneratorLink::run(const StripeSettings& settings) {
    auto& manager = Vexa_MIDI_Manager::sharedMidiManager();
    manager.sendSetupMessageStart(settings.startTime, settings.frameRate, settings.syncType);
    manager.sendStartMessage();
}

} // namespace vexa
