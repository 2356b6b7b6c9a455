#pragma once

#include "app/command_line.h"
#include "midi/MidiSystem.h"

#include <cstdint>
#include <string>
#include <variant>

namespace vexa {

/// Finds the destination that the operator named by its position, counted from 0, its unique ID, or
/// any part of exactly one name, ignoring case. Returns its position.
std::variant<std::int64_t, CommandLineError> destinationNamed(const QString& name,
                                                              MidiSystem& system);

/// A line for each destination: position, unique ID, name and, if known, what distinguishes it from
/// others of the same name. Separated by tabs.
std::string destinationTable(MidiSystem& system);

} // namespace vexa
