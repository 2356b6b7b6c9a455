#include "bench/jack_receiver.h"

#include "midi/jack/JackSession.h"

#include <jack/midiport.h>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

namespace vexa::bench {

JackServer::JackServer() {
    const auto name = "vexa-bench-" + std::to_string(getpid());
    const auto rate = std::to_string(sampleRate);
    const auto frames = std::to_string(period);
    setenv("JACK_DEFAULT_SERVER", name.c_str(), 1);
    setenv("JACK_NO_AUDIO_RESERVATION", "1", 1);
    const char* arguments[] = {"jackd", "-n",         name.c_str(), "-d",           "dummy",
                               "-r",    rate.c_str(), "-p",         frames.c_str(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    if (posix_spawnp(&m_process, arguments[0], &actions, nullptr, const_cast<char**>(arguments),
                     environ) != 0)
        m_process = 0;
    posix_spawn_file_actions_destroy(&actions);
}

JackServer::~JackServer() {
    if (m_process <= 0)
        return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
}

bool JackServer::isUp() const {
    for (int attempt = 0; m_process > 0 && attempt < 100; ++attempt) {
        if (JackSession::open())
            return true;
        std::this_thread::sleep_for(
            std::chrono::milliseconds(50)); // a server does not say it is up
    }
    return false;
}

JackReceiver::JackReceiver(std::function<void()> received)
    : m_received(std::move(received)),
      m_client(jack_client_open("receiver", JackNoStartServer, nullptr)),
      m_port(jack_port_register(m_client, "in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0)) {
    jack_set_process_callback(
        m_client,
        [](jack_nframes_t frames, void* argument) {
            auto& self = *static_cast<JackReceiver*>(argument);
            auto* const buffer = jack_port_get_buffer(self.m_port, frames);
            for (auto left = jack_midi_get_event_count(buffer); left > 0; --left)
                self.m_received();
            return 0;
        },
        this);
    jack_activate(m_client);
}

JackReceiver::~JackReceiver() { jack_client_close(m_client); }

} // namespace vexa::bench
