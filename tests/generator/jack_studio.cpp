// jack_studio FOLDER SAMPLES EVENT…: two clients of a JACK server around the generator, a sender
// before it and a recorder after it. An event is "SAMPLE F0 7D 42", which is sent to "Vexa
// Generator:in" at that sample, or "SAMPLE period 512", which sets the server's period at about
// that sample. Samples count from the start of the recording, which lasts for SAMPLES. The folder
// receives the audio of "recorder:ltc" as floats in "ltc", and the messages of "recorder:mtc" as
// lines "SAMPLE F1 00" in "mtc". Prints "ready" when its ports exist, and starts when its input
// ends. Connects the generator's ports that are not connected yet.

#include "generator/hex_bytes.h"

#include <jack/jack.h>
#include <jack/midiport.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <thread>

namespace {

struct Event {
    std::size_t sample;
    std::vector<std::uint8_t> bytes; ///< none for a delay
};

struct Received {
    std::size_t sample;
    vexa::SysEx message; ///< for its text
};

/// Shared by both clients, whose threads run one after the other in every period.
struct Studio {
    std::vector<Event> events;
    std::size_t sent = 0;
    jack_port_t* out = nullptr;

    std::vector<float> ltc;
    std::vector<Received> mtc;
    jack_port_t* ltcIn = nullptr;
    jack_port_t* mtcIn = nullptr;

    std::atomic<int> cycles = 0;
    std::atomic<bool> begun = false;
    std::size_t begin = 0; ///< of the current period, in the sender's count
    std::atomic<std::size_t> recorded = 0;
};

int send(jack_nframes_t samples, void* argument) {
    auto& studio = *static_cast<Studio*>(argument);
    auto* const buffer = jack_port_get_buffer(studio.out, samples);
    jack_midi_clear_buffer(buffer);
    if (!studio.begun)
        return 0;
    for (; studio.sent < studio.events.size(); ++studio.sent) {
        const auto& event = studio.events[studio.sent];
        if (event.sample >= studio.begin + samples)
            break;
        if (event.bytes.empty())
            std::this_thread::sleep_for(
                std::chrono::milliseconds(200)); // an event without bytes is a late client
        else
            jack_midi_event_write(buffer, static_cast<jack_nframes_t>(event.sample - studio.begin),
                                  event.bytes.data(), event.bytes.size());
    }
    studio.begin += samples;
    return 0;
}

int record(jack_nframes_t samples, void* argument) {
    auto& studio = *static_cast<Studio*>(argument);
    const auto* const ltc = static_cast<float*>(jack_port_get_buffer(studio.ltcIn, samples));
    auto* const mtc = jack_port_get_buffer(studio.mtcIn, samples);
    ++studio.cycles;
    if (!studio.begun || studio.begin == 0)
        return 0;
    const std::size_t begin = studio.recorded;
    for (jack_nframes_t i = 0; i < samples && begin + i < studio.ltc.size(); ++i)
        studio.ltc[begin + i] = ltc[i];
    for (std::uint32_t i = 0; i < jack_midi_get_event_count(mtc); ++i) {
        jack_midi_event_t event;
        jack_midi_event_get(&event, mtc, i);
        if (studio.mtc.size() == studio.mtc.capacity() || event.size > vexa::SysEx::kept)
            std::abort();
        auto& received = studio.mtc.emplace_back();
        received.sample = begin + event.time;
        received.message.size = event.size;
        std::copy(event.buffer, event.buffer + event.size, received.message.bytes.begin());
    }
    studio.recorded = begin + samples;
    return 0;
}

jack_client_t* opened(const char* name) {
    auto* const client = jack_client_open(name, JackNoStartServer, nullptr);
    if (!client)
        std::exit(EXIT_FAILURE);
    return client;
}

void connect(jack_client_t* client, const char* from, const char* to) {
    const bool areThere = jack_port_by_name(client, from) && jack_port_by_name(client, to);
    const int error = areThere ? jack_connect(client, from, to) : 0;
    if (error != 0 && error != EEXIST)
        std::exit(EXIT_FAILURE);
}

std::vector<std::string> connections(jack_client_t* client, const char* port) {
    std::vector<std::string> names;
    auto** const list = jack_port_get_all_connections(client, jack_port_by_name(client, port));
    for (auto** name = list; name && *name; ++name)
        names.emplace_back(*name);
    jack_free(list);
    return names;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3)
        return EXIT_FAILURE;
    const std::string folder = argv[1];
    Studio studio;
    studio.ltc.resize(std::stoul(argv[2]));
    studio.mtc.reserve(studio.ltc.size() / 64 + 1024);
    std::vector<std::pair<std::size_t, jack_nframes_t>> periods;
    for (int i = 3; i < argc; ++i) {
        const std::string event = argv[i];
        const auto sample = std::stoul(event);
        const auto rest = event.substr(event.find(' ') + 1);
        if (rest.starts_with("period "))
            periods.emplace_back(sample, std::stoul(rest.substr(7)));
        else
            studio.events.push_back({sample, bytesFromHex(rest)});
    }

    auto* const sender = opened("sender");
    auto* const recorder = opened("recorder");
    studio.out = jack_port_register(sender, "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    studio.ltcIn = jack_port_register(recorder, "ltc", JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput, 0);
    studio.mtcIn = jack_port_register(recorder, "mtc", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0);
    jack_set_process_callback(sender, send, &studio);
    jack_set_process_callback(recorder, record, &studio);
    // A server on a busy machine may drop a client; the recording would never be complete.
    const auto giveUp = [](void*) { std::_Exit(EXIT_FAILURE); };
    jack_on_shutdown(sender, giveUp, nullptr);
    jack_on_shutdown(recorder, giveUp, nullptr);
    if (jack_activate(sender) != 0 || jack_activate(recorder) != 0)
        return EXIT_FAILURE;
    std::cout << "ready" << std::endl;
    std::cin.ignore(std::numeric_limits<std::streamsize>::max());
    connect(sender, "sender:out", "Vexa Generator:in");
    connect(recorder, "Vexa Generator:LTC", "recorder:ltc");
    connect(recorder, "Vexa Generator:MTC", "recorder:mtc");
    // Only some cycles after the connection does the recorder follow the sender; before that, it
    // may miss the first period.
    for (const int connected = studio.cycles; studio.cycles < connected + 4;)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));

    studio.begun = true;
    while (studio.recorded < studio.ltc.size()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (!periods.empty() && studio.recorded >= periods.front().first) {
            jack_set_buffer_size(recorder, periods.front().second);
            periods.erase(periods.begin());
        }
    }
    const auto connected = connections(recorder, "Vexa Generator:LTC");
    jack_client_close(recorder);
    jack_client_close(sender);

    std::ofstream ltc(folder + "/ltc", std::ios::binary);
    ltc.write(reinterpret_cast<const char*>(studio.ltc.data()),
              static_cast<std::streamsize>(studio.ltc.size() * sizeof(float)));
    std::ofstream mtc(folder + "/mtc");
    for (const auto& [sample, message] : studio.mtc)
        mtc << sample << ' ' << vexa::hexText(message) << '\n';
    std::ofstream ports(folder + "/connected");
    for (const auto& port : connected)
        ports << port << '\n';
    return ltc.flush() && mtc.flush() && ports.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
