#pragma once

#include <QByteArray>

#include <chrono>

namespace vexa {

/// A Wayland compositor's leave for a window of this program to ask for attention. Only a launch
/// by the operator brings leave to come to the front; this one comes for the asking, by a
/// connection of its own. Empty where there is no such compositor, or none that answers in time.
QByteArray attentionToken(std::chrono::milliseconds patience = std::chrono::milliseconds(500));

} // namespace vexa
