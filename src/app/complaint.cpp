#include "app/complaint.h"

#include "text/printable.h"

#include <cstdio>

namespace vexa {

void complain(const QString& message) {
    std::fprintf(stderr, "vexa-remote: %s\n", printable(message.toStdString()).c_str());
}

} // namespace vexa
