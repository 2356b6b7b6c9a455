#include "midi/FakeJackServer.h"

#include <jack/jack.h>
#include <jack/midiport.h>

#include <algorithm>
#include <cerrno>
#include <deque>
#include <map>
#include <mutex>
#include <set>
#include <utility>

namespace {

struct Change {
    std::string port;
    bool isConnection = false;
    int periodsLeft = 0;
};

struct State {
    std::mutex period; ///< held while the client takes part in a period
    std::mutex mutex;
    std::set<std::string> ports;
    std::set<std::string> connections; ///< as in force
    std::deque<Change> changes;        ///< requested, not yet in force
    int delay = 0;                     ///< of changes, in periods
    bool hasLooked = false;            ///< the client, since the last period
    bool hasEnded = false;
    int refusals = 0; ///< of clients, still to come
    int attempts = 0; ///< to open a client
    std::map<std::string, std::vector<std::string>> arrived;
    std::deque<std::vector<jack_midi_data_t>> events; ///< in the output's buffer

    JackProcessCallback process = nullptr;
    JackShutdownCallback shutdown = nullptr;
    void* argument = nullptr;

    /// Whether there is a connection once all requests are in force.
    bool willBeConnected(const std::string& port) const {
        const auto last = std::find_if(changes.rbegin(), changes.rend(),
                                       [&](const Change& change) { return change.port == port; });
        return last == changes.rend() ? connections.contains(port) : last->isConnection;
    }

    int request(const std::string& port, bool isConnection, int errorIfSo) {
        const std::lock_guard lock{mutex};
        if (!ports.contains(port))
            return -1;
        if (willBeConnected(port) == isConnection)
            return errorIfSo;
        changes.push_back({port, isConnection, delay});
        return 0;
    }

    void makeDueChanges() {
        if (std::exchange(hasLooked, false))
            for (auto& change : changes)
                --change.periodsLeft;
        while (!changes.empty() && changes.front().periodsLeft <= 0) {
            const auto change = changes.front();
            changes.pop_front();
            if (change.isConnection)
                connections.insert(change.port);
            else
                connections.erase(change.port);
        }
    }
};

State* current = nullptr;

/// The library's types are opaque, and the program has one client with one port.
template<class Opaque>
Opaque* handle() {
    return reinterpret_cast<Opaque*>(current);
}

} // namespace

namespace vexa::test {

FakeJackServer::FakeJackServer() { current = new State; }

FakeJackServer::~FakeJackServer() {
    delete current;
    current = nullptr;
}

void FakeJackServer::add(const std::string& port) {
    const std::lock_guard lock{current->mutex};
    current->ports.insert(port);
}

void FakeJackServer::remove(const std::string& port) {
    const std::lock_guard lock{current->mutex};
    current->ports.erase(port);
    current->connections.erase(port);
    std::erase_if(current->changes, [&](const Change& change) { return change.port == port; });
}

void FakeJackServer::connect(const std::string& port) { current->request(port, true, EEXIST); }

void FakeJackServer::delayChanges(int periods) { current->delay = periods; }

void FakeJackServer::runPeriod() {
    const std::lock_guard period{current->period};
    std::unique_lock lock{current->mutex};
    current->makeDueChanges();
    if (!current->process)
        return;
    lock.unlock();
    current->process(256, current->argument);
    lock.lock();
    for (const auto& event : current->events)
        for (const auto& port : current->connections)
            current->arrived[port].emplace_back(event.begin(), event.end());
}

void FakeJackServer::end() {
    std::unique_lock lock{current->mutex};
    current->process = nullptr;
    current->hasEnded = true;
    const auto shutdown = current->shutdown;
    lock.unlock();
    if (shutdown)
        shutdown(current->argument);
}

void FakeJackServer::refuseClients(int count) { current->refusals = count; }

int FakeJackServer::attempts() const { return current->attempts; }

std::vector<std::string> FakeJackServer::arrived(const std::string& port) const {
    const std::lock_guard lock{current->mutex};
    return current->arrived[port];
}

} // namespace vexa::test

// The part of libjack that the program uses, except the ring buffer.
extern "C" {

void jack_set_error_function(void (*)(const char*)) {}
void jack_set_info_function(void (*)(const char*)) {}

jack_client_t* jack_client_open(const char*, jack_options_t, jack_status_t* status, ...) {
    const std::lock_guard lock{current->mutex};
    ++current->attempts;
    const bool isRefused = current->refusals > 0;
    current->refusals -= isRefused;
    const int failure = current->hasEnded ? JackFailure | JackServerFailed
                        : isRefused       ? JackFailure
                                          : 0;
    *status = static_cast<jack_status_t>(failure);
    return failure ? nullptr : handle<jack_client_t>();
}

int jack_client_close(jack_client_t*) {
    const std::lock_guard period{current->period};
    const std::lock_guard lock{current->mutex};
    current->process = nullptr;
    current->shutdown = nullptr;
    return 0;
}

int jack_activate(jack_client_t*) { return 0; }

jack_port_t* jack_port_register(jack_client_t*, const char*, const char*, unsigned long,
                                unsigned long) {
    return handle<jack_port_t>();
}

int jack_set_process_callback(jack_client_t*, JackProcessCallback process, void* argument) {
    const std::lock_guard lock{current->mutex};
    current->process = process;
    current->argument = argument;
    return 0;
}

void jack_on_shutdown(jack_client_t*, JackShutdownCallback shutdown, void*) {
    const std::lock_guard lock{current->mutex};
    current->shutdown = shutdown;
}

const char* jack_port_name(const jack_port_t*) { return "Vexa Remote:Output port"; }

jack_port_t* jack_port_by_name(jack_client_t*, const char* name) {
    const std::lock_guard lock{current->mutex};
    return current->ports.contains(name) ? handle<jack_port_t>() : nullptr;
}

int jack_port_connected_to(const jack_port_t*, const char* name) {
    const std::lock_guard lock{current->mutex};
    current->hasLooked = true;
    return current->connections.contains(name);
}

int jack_connect(jack_client_t*, const char*, const char* port) {
    return current->request(port, true, EEXIST);
}

int jack_disconnect(jack_client_t*, const char*, const char* port) {
    return current->request(port, false, -1);
}

void* jack_port_get_buffer(jack_port_t*, jack_nframes_t) { return &current->events; }

void jack_midi_clear_buffer(void*) { current->events.clear(); }

jack_midi_data_t* jack_midi_event_reserve(void*, jack_nframes_t, size_t size) {
    return current->events.emplace_back(size).data();
}
}
