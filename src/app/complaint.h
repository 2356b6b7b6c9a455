#pragma once

#include <QString>

namespace vexa {

/// Writes a line to standard error, with the program's name in front. The message may hold text of
/// strangers.
void complain(const QString& message);

} // namespace vexa
