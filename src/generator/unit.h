#pragma once

#include "generator/moment.h"
#include "generator/report.h"

#include <functional>
#include <memory>
#include <string>

namespace vexa {

inline constexpr const char* generatorName = "Vexa Generator";

/// Receives a unit's events.
class Listener {
public:
    virtual void happened(const Report& report) = 0;

    /// An event not caused by a message.
    virtual void noted(Moment moment, const std::string& text) = 0;

protected:
    ~Listener() = default;
};

/// The generator on one MIDI system, while that system runs: a MIDI destination, and the signals
/// that its messages cause.
class Unit {
public:
    Unit() = default;
    virtual ~Unit() = default;
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    /// The name under which senders find the unit.
    virtual std::string name() const = 0;

    /// Becomes readable when read() has work to do.
    virtual int descriptor() const = 0;

    /// Reports what has happened, in order. Does not block. Returns false when the MIDI system is
    /// gone and nothing more will happen.
    virtual bool read(Listener& listener) = 0;

    /// Stops receiving, and reports what has happened until now.
    virtual void finish(Listener& listener) = 0;

    virtual SignalStatus signal() = 0;
};

/// A MIDI system that a unit can run on.
struct System {
    std::string name;    ///< "JACK"
    std::string absence; ///< why the system cannot be used, if open() returns null
    std::function<std::unique_ptr<Unit>()> open;
};

} // namespace vexa
