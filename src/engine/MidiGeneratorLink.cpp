#include "engine/MidiGeneratorLink.h"

#include "midi/Vexa_MIDI_Manager.h"

namespace vexa {

void MidiGeneratorLink::stop() { Vexa_MIDI_Manager::sharedMidiManager().sendStopMessage(); }

void MidiGeneratorLink::run(const StripeSettings& settings) {
    auto& manager = Vexa_MIDI_Manager::sharedMidiManager();
    // After a launch or a lost connection, the stop just sent may still be waiting for a new one.
    // The generator starts when the clock does only if the setup meets an open connection.
    manager.awaitSent();
    manager.sendSetupMessageStart(settings.startTime, settings.frameRate, settings.syncType);
    manager.sendStartMessage();
}

} // namespace vexa
