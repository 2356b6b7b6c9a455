#include "app/MainWindow.h"
#include "app/command_line.h"
#include "app/midi_choice.h"
#include "app/terminal_stripe.h"
#include "app/termination_signals.h"
#include "controls/AccessibleButton.h"
#include "engine/TimerfdRunLoop.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/display_name.h"

#include <QApplication>

#include <cstdio>

namespace {

using namespace vexa;

int refuse(const QString& message, int exitCode = 2) {
    std::fprintf(stderr, "vexa-remote: %s\n", qUtf8Printable(message));
    return exitCode;
}

int listDestinations(MidiSystem& system) {
    const auto names = destinationNames(system);
    for (std::size_t i = 0; i < names.size(); ++i)
        std::printf("%zu\t%d\t%s\n", i, system.uniqueId(system.destination(i)).value_or(0),
                    names[i].c_str());
    return 0;
}

int runWindow(const CommandLine& line) {
    AccessibleButton::install();
    TimerfdRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller(window.outlets(), runLoop);
    controller.applicationDidFinishLaunching();
    window.connectTo(controller);
    const TerminationSignals signals([] { QCoreApplication::quit(); });
    if (!line.file.isNull())
        controller.openFile(line.file);
    window.show();
    return QCoreApplication::exec();
}

int runWith(const CommandLine& line) {
    const auto system = openMidiSystem(line.midi);
    if (line.mode == CommandLine::Mode::Destinations)
        return listDestinations(*system);
    Vexa_MIDI_Manager::setMidiSystem(system.get());
    if (line.destination) {
        const auto found = destinationNamed(*line.destination, destinationNames(*system));
        if (const auto* error = std::get_if<CommandLineError>(&found))
            return refuse(error->message);
        Vexa_MIDI_Manager::sharedMidiManager().connectToDestinationAtIndex(
            std::get<std::int64_t>(found));
    }
    return line.mode == CommandLine::Mode::Stripe ? stripeInTerminal(line) : runWindow(line);
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    const auto parsed = parseCommandLine(arguments);
    if (const auto* error = std::get_if<CommandLineError>(&parsed))
        return refuse(error->message);
    const auto& line = std::get<CommandLine>(parsed);

    QCoreApplication::setApplicationName(QStringLiteral("Vexa Remote"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VEXA_VERSION));
    if (line.mode == CommandLine::Mode::Window) {
        if (!hasDisplay())
            return refuse(
                QStringLiteral("there is no display; see --help for striping without one"), 1);
        const QApplication application(argc, argv);
        return runWith(line);
    }
    const QCoreApplication application(argc, argv);
    switch (line.mode) {
    case CommandLine::Mode::Help:
        std::fputs(qUtf8Printable(commandLineHelp()), stdout);
        return 0;
    case CommandLine::Mode::Version:
        std::puts("vexa-remote " VEXA_VERSION);
        return 0;
    default:
        return runWith(line);
    }
}
