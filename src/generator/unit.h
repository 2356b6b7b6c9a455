#pragma once

#include "generator/moment.h"
#include "generator/report.h"

#include <functional>
#include <memory>
#include <string>

namespace vexa {

inline constexpr const char* generatorName = "Vexa Generator";

/// Hears what happens to a unit.
class Listener {
public:
    virtual void happened(const Report& report) = 0;

    /// Something that no message brought about.
    virtual void noted(Moment moment, const std::string& text) = 0;

protected:
    ~Listener() = default;
};

/// The generator on one of the MIDI systems, for as long as it lives: a MIDI destination, and the
/// signals that come of what arrives there.
class Unit {
public:
    Unit() = default;
    virtual ~Unit() = default;
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    /// The name that senders find it under.
    virtual std::string name() const = 0;

    /// Polls readable when read() has something to do.
    virtual int descriptor() const = 0;

    /// Tells what has happened, in order. Does not block. False when the MIDI system has gone
    /// away, and nothing will happen any more.
    virtual bool read(Listener& listener) = 0;

    /// Hears no more, and tells of what has happened up to now.
    virtual void finish(Listener& listener) = 0;

    virtual SignalStatus signal() = 0;
};

/// A MIDI system for a unit to be on.
struct System {
    std::string name;    ///< "JACK"
    std::string absence; ///< what keeps it from being used when open() gives nothing
    std::function<std::unique_ptr<Unit>()> open;
};

} // namespace vexa
