#include "generator/alsa_unit.h"
#include "generator/command_line.h"
#include "generator/event_log.h"
#include "generator/jack_unit.h"
#include "generator/program.h"
#include "text/printable.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <vector>

namespace {
using namespace vexa;

constexpr int usageError = 2;

int fail(const std::string& message, int status) {
    std::cerr << "vexa-generator: " << printable(message) << '\n';
    return status;
}

/// A descriptor that becomes readable when the program is asked to end. Call this before starting
/// other threads, so that the signals do not interrupt them.
int endSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

std::vector<System> systemsFor(GeneratorMidi choice, const OutputOptions& output) {
    const System alsa{"ALSA", "the ALSA sequencer does not open",
                      [output] { return openAlsaUnit(output); }};
    const System jack{"JACK", "no JACK server is running",
                      [output] { return openJackUnit(output); }};
    switch (choice) {
    case GeneratorMidi::alsa:
        return {alsa};
    case GeneratorMidi::jack:
        return {jack};
    default:
        return {alsa, jack};
    }
}

int run(const GeneratorCommandLine& commandLine) {
    std::ofstream copy; // discards everything unless it is opened
    if (commandLine.logFile) {
        copy.open(*commandLine.logFile, std::ios::app);
        if (!copy)
            return fail("cannot write " + *commandLine.logFile, EXIT_FAILURE);
    }
    const int end = endSignals();
    std::string absences;
    for (const auto& system : systemsFor(commandLine.midi, commandLine.output)) {
        if (auto unit = system.open()) {
            EventLog log(std::cout, isatty(STDOUT_FILENO) != 0, copy);
            Program(system, std::move(unit), log).runUntilReadable(end);
            return EXIT_SUCCESS;
        }
        absences += (absences.empty() ? "" : ", and ") + system.absence;
    }
    return fail(absences, EXIT_FAILURE);
}
} // namespace

int main(int argc, char* argv[]) {
    try {
        const auto commandLine = readCommandLine({argv + 1, argv + argc});
        switch (commandLine.action) {
        case GeneratorCommandLine::Action::help:
            std::cout << helpText();
            return EXIT_SUCCESS;
        case GeneratorCommandLine::Action::version:
            std::cout << "vexa-generator " VEXA_VERSION "\n";
            return EXIT_SUCCESS;
        case GeneratorCommandLine::Action::run:
            break;
        }
        return run(commandLine);
    } catch (const std::invalid_argument& error) {
        return fail(error.what(), usageError);
    }
}
