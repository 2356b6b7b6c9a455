// jack_send PORT EVENT…: sends the events, each given as "F0 7D 42", to a JACK port in as few
// cycles as possible, and ends when they have been received. It is a separate program, as thread
// sanitizers do not see that the server finishes one client before the next begins.

#include "generator/hex_bytes.h"

#include <jack/jack.h>
#include <jack/midiport.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

namespace {

struct Sender {
    std::vector<std::vector<std::uint8_t>> events;
    jack_port_t* port = nullptr;
    std::atomic<std::size_t> sent = 0;
    std::atomic<bool> mayBegin = false;
    std::atomic<int> cycles = 0;
};

int process(jack_nframes_t frames, void* argument) {
    auto& sender = *static_cast<Sender*>(argument);
    auto* const buffer = jack_port_get_buffer(sender.port, frames);
    jack_midi_clear_buffer(buffer);
    ++sender.cycles;
    if (!sender.mayBegin)
        return 0;
    for (; sender.sent < sender.events.size(); ++sender.sent) {
        const auto& event = sender.events[sender.sent];
        if (jack_midi_event_write(buffer, 0, event.data(), event.size()) != 0)
            break;
    }
    return 0;
}

void awaitCycles(const Sender& sender, int count) {
    for (const int before = sender.cycles; sender.cycles < before + count;)
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // JACK's thread must not wake us
}

} // namespace

int main(int argc, char* argv[]) {
    auto* const client = jack_client_open("sender", JackNoStartServer, nullptr);
    if (!client || argc < 2)
        return EXIT_FAILURE;
    Sender sender;
    for (int i = 2; i < argc; ++i)
        sender.events.push_back(bytesFromHex(argv[i]));
    sender.port = jack_port_register(client, "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    jack_set_process_callback(client, process, &sender);
    jack_on_shutdown(client, [](void*) { std::_Exit(EXIT_FAILURE); }, nullptr);
    if (jack_activate(client) != 0 || jack_connect(client, "sender:out", argv[1]) != 0) {
        jack_client_close(client); // a client that just ends holds up the next one for seconds
        return EXIT_FAILURE;
    }
    // A busy server connects some cycles later, and messages sent before that are lost.
    while (!jack_port_connected_to(sender.port, argv[1]))
        awaitCycles(sender, 1);
    awaitCycles(sender, 2);
    sender.mayBegin = true;
    while (sender.sent < sender.events.size())
        awaitCycles(sender, 1);
    // What a cycle writes is read in that cycle or in the next.
    awaitCycles(sender, 4);
    jack_client_close(client);
}
