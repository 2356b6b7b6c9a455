// jack_receive NAME [ALIAS]: prints each message that arrives at the JACK port NAME:in as a line
// "F0 7D 42", until standard input ends. The first line, "ready", confirms that the port exists.
// The last, "irregular 0", counts the periods that did not follow the previous one in time. The
// server may have skipped this client there, and lost what it would have received. Waits for a
// server that is starting. With an alias, the port counts as hardware. It is a separate program, as
// thread sanitizers do not see how the server synchronizes its clients.

#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/ringbuffer.h>

#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using Message = std::array<char, 64>; // as text

struct Receiver {
    jack_client_t* client = nullptr;
    jack_port_t* port = nullptr;
    jack_nframes_t nextPeriod = 0; ///< when it should begin; 0 before the first
    std::atomic<int> irregular = 0;
    jack_ringbuffer_t* messages = jack_ringbuffer_create(1000 * sizeof(Message));
};

int process(jack_nframes_t frames, void* argument) {
    auto& receiver = *static_cast<Receiver*>(argument);
    const auto period = jack_last_frame_time(receiver.client);
    if (receiver.nextPeriod != 0 && period != receiver.nextPeriod)
        ++receiver.irregular;
    receiver.nextPeriod = period + frames;
    auto* const buffer = jack_port_get_buffer(receiver.port, frames);
    for (std::uint32_t i = 0; i < jack_midi_get_event_count(buffer); ++i) {
        jack_midi_event_t event;
        jack_midi_event_get(&event, buffer, i);
        Message text{};
        for (std::size_t k = 0; k < event.size && 3 * k + 4 < text.size(); ++k)
            std::snprintf(&text[3 * k], 4, "%02X ", event.buffer[k]);
        jack_ringbuffer_write(receiver.messages, text.data(), text.size());
    }
    return 0;
}

void printMessages(Receiver& receiver) {
    Message text;
    while (jack_ringbuffer_read(receiver.messages, text.data(), text.size()) == text.size())
        std::printf("%s\n", text.data());
    std::fflush(stdout);
}

jack_client_t* openWhenUp(const char* name) {
    for (int tries = 0; tries < 500; ++tries) {
        if (auto* const client = jack_client_open(name, JackNoStartServer, nullptr))
            return client;
        usleep(20000);
    }
    return nullptr;
}

bool inputEnds() {
    fd_set input;
    FD_ZERO(&input);
    FD_SET(STDIN_FILENO, &input);
    timeval patience{0, 2000};
    return select(STDIN_FILENO + 1, &input, nullptr, nullptr, &patience) > 0;
}

} // namespace

int main(int argc, char* argv[]) {
    jack_set_error_function([](const char*) {});
    auto* const client = argc < 2 ? nullptr : openWhenUp(argv[1]);
    if (!client)
        return EXIT_FAILURE;
    Receiver receiver;
    receiver.client = client;
    const unsigned long hardware = argc > 2 ? JackPortIsPhysical | JackPortIsTerminal : 0;
    receiver.port =
        jack_port_register(client, "in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput | hardware, 0);
    if (argc > 2)
        jack_port_set_alias(receiver.port, argv[2]);
    jack_set_process_callback(client, process, &receiver);
    if (jack_activate(client) != 0)
        return EXIT_FAILURE;
    std::puts("ready");
    do
        printMessages(receiver);
    while (!inputEnds());
    jack_client_close(client);
    printMessages(receiver);
    std::printf("irregular %d\n", receiver.irregular.load());
}
