#pragma once

#include <jack/jack.h>

#include <type_traits>

namespace vexa {

/// Keeps the library from writing to the terminal.
void silenceJack();

/// Opens a client on the running server and makes something of it; does not start a server. `make`
/// takes the client, which is its own to close, and returns a pointer: null if the server refuses
/// what it asks for. Returns that pointer; null if no server runs or it refuses every attempt.
template<typename Make>
std::invoke_result_t<Make, jack_client_t*> openedOnJack(const char* name, Make make) {
    silenceJack();
    // A busy server can miss its own signal that a client has come or joined, and refuses the
    // client five seconds later. A second attempt has the same chances as the first.
    jack_status_t status{};
    for (int attempts = 0; attempts < 3 && !(status & JackServerFailed); ++attempts)
        if (auto* const client = jack_client_open(name, JackNoStartServer, &status))
            if (auto made = make(client))
                return made;
    return nullptr;
}

} // namespace vexa
