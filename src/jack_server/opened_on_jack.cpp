#include "jack_server/opened_on_jack.h"

namespace vexa {

void silenceJack() {
    const auto ignore = [](const char*) {};
    jack_set_error_function(ignore);
    jack_set_info_function(ignore);
}

} // namespace vexa
