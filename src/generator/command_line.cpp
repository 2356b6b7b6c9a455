#include "generator/command_line.h"

#include <charconv>
#include <iterator>
#include <stdexcept>

namespace vexa {

namespace {
GeneratorMidi midiNamed(const std::string& name) {
    if (name == "alsa")
        return GeneratorMidi::alsa;
    if (name == "jack")
        return GeneratorMidi::jack;
    throw std::invalid_argument("--midi takes alsa or jack, not '" + name + "'");
}

double level(const std::string& text) {
    double level = 0;
    const auto* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, level);
    // Refuses NaN too, as it fails every comparison.
    if (error != std::errc() || rest != end || !(level >= OutputOptions::lowestLevel && level <= 0))
        throw std::invalid_argument("--level takes a number from -60 to 0, not '" + text + "'");
    return level;
}
} // namespace

GeneratorCommandLine readCommandLine(const std::vector<std::string>& arguments) {
    GeneratorCommandLine commandLine;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const auto equals = argument->find('=');
        const auto name = argument->substr(0, equals);
        const auto value = [&] {
            if (equals != std::string::npos)
                return argument->substr(equals + 1);
            if (std::next(argument) == arguments.end())
                throw std::invalid_argument(name + " needs a value");
            return *++argument;
        };
        if (name == "--midi")
            commandLine.midi = midiNamed(value());
        else if (name == "--log")
            commandLine.logFile = value();
        else if (name == "--level")
            commandLine.output.level = level(value());
        else if (name == "--connect")
            commandLine.output.connections.push_back(value());
        else if (*argument == "--help")
            commandLine.action = GeneratorCommandLine::Action::help;
        else if (*argument == "--version")
            commandLine.action = GeneratorCommandLine::Action::version;
        else
            throw std::invalid_argument("unknown argument '" + *argument + "'");
    }
    return commandLine;
}

std::string helpText() {
    return "Usage: vexa-generator [--midi alsa|jack] [--level DBFS] [--connect PORT]... [--log "
           "FILE]\n"
           "\n"
           "A software timecode generator: a MIDI destination named \"Vexa Generator\" that does\n"
           "what it is told, and shows it. LTC comes out of its JACK port LTC, MTC out of MTC.\n"
           "\n"
           "  --midi alsa|jack  the MIDI system to use (default: ALSA where its sequencer opens,\n"
           "                    else a running JACK server)\n"
           "  --level DBFS      the peak level of LTC, -60 to 0 (default: -18)\n"
           "  --connect PORT    connect LTC to this JACK port, such as system:playback_1; may be\n"
           "                    given more than once (default: to none)\n"
           "  --log FILE        append the event lines to FILE too\n"
           "  --help            show this text and exit\n"
           "  --version         show the version and exit\n"
           "\n"
           "Event lines begin with the seconds of CLOCK_MONOTONIC.\n";
}

} // namespace vexa
