#include "ltc_tool/interruption.h"

#include <csignal>
#include <initializer_list>

namespace vexa::ltc_tool {

namespace {
volatile std::sig_atomic_t interrupted = 0;
}

void noteInterruptions() {
    struct sigaction action{};
    action.sa_handler = [](int) { interrupted = 1; };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

bool wasInterrupted() { return interrupted != 0; }

} // namespace vexa::ltc_tool
