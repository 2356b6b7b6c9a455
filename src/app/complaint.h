#pragma once

#include <QString>

namespace vexa {

/// Writes a line to standard error, prefixed with the program's name. The message may contain
/// untrusted text.
void complain(const QString& message);

} // namespace vexa
