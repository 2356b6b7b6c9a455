#include "generator/command_line.h"

#include <iterator>
#include <stdexcept>

namespace vexa {

namespace {
MidiChoice midiChoice(const std::string& name) {
    if (name == "alsa")
        return MidiChoice::Alsa;
    if (name == "jack")
        return MidiChoice::Jack;
    throw std::invalid_argument("--midi takes alsa or jack, not '" + name + "'");
}
} // namespace

CommandLine readCommandLine(const std::vector<std::string>& arguments) {
    CommandLine commandLine;
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
            commandLine.midi = midiChoice(value());
        else if (name == "--log")
            commandLine.logFile = value();
        else if (*argument == "--help")
            commandLine.action = CommandLine::Action::Help;
        else if (*argument == "--version")
            commandLine.action = CommandLine::Action::Version;
        else
            throw std::invalid_argument("unknown argument '" + *argument + "'");
    }
    return commandLine;
}

std::string helpText() {
    return "Usage: vexa-generator [--midi alsa|jack] [--log FILE]\n"
           "\n"
           "A software timecode generator: a MIDI destination named \"Vexa Generator\" that shows\n"
           "what it is told to do.\n"
           "\n"
           "  --midi alsa|jack  the MIDI system to use (default: ALSA where its sequencer opens,\n"
           "                    else a running JACK server)\n"
           "  --log FILE        append the event lines to FILE too\n"
           "  --help            show this text and exit\n"
           "  --version         show the version and exit\n"
           "\n"
           "Event lines begin with the seconds of CLOCK_MONOTONIC.\n";
}

} // namespace vexa
