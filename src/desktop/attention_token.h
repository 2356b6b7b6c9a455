#pragma once

#include <QByteArray>

#include <chrono>

namespace vexa {

/// A Wayland compositor's permission for this program's window to ask for attention. Only a launch
/// by the operator brings permission to come to the front; this weaker one can be requested, over a
/// connection of its own. Empty if there is no such compositor or it does not answer in time.
QByteArray attentionToken(std::chrono::milliseconds patience = std::chrono::milliseconds(500));

} // namespace vexa
