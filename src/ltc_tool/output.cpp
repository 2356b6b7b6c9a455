#include "ltc_tool/output.h"

#include "text/printable.h"

#include <unistd.h>

#include <cstdio>

namespace vexa::ltc_tool {

void complain(const std::string& message) {
    showProgress({});
    std::fprintf(stderr, "vexa-ltc: %s\n", printable(message).c_str());
}

void showProgress(const std::string& line) {
    static const bool isTerminal = isatty(STDERR_FILENO) != 0;
    if (isTerminal)
        std::fprintf(stderr, "\r\x1B[K%s", printable(line).c_str());
}

} // namespace vexa::ltc_tool
