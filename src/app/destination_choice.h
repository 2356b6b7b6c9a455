#pragma once

#include "app/command_line.h"
#include "midi/MidiSystem.h"

#include <cstdint>
#include <string>
#include <variant>

namespace vexa {

/// Finds the destination that the operator named: a position in the list, counted from 0, a unique
/// ID, or any part of exactly one name, in either case of letters. Gives its position.
std::variant<std::int64_t, CommandLineError> destinationNamed(const QString& name,
                                                              MidiSystem& system);

/// A line for each destination: position, unique ID, name and, where it is known, what tells it
/// from others of that name. Tabs lie between.
std::string destinationTable(MidiSystem& system);

} // namespace vexa
