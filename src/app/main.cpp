#include "app/MainWindow.h"
#include "app/TimerfdRunLoop.h"
#include "app/command_line.h"
#include "app/complaint.h"
#include "app/destination_choice.h"
#include "app/midi_choice.h"
#include "app/stripe_obstacle.h"
#include "app/terminal_lists.h"
#include "app/terminal_stripe.h"
#include "app/termination_signals.h"
#include "controls/AccessibleButton.h"
#include "controls/AccessiblePopup.h"
#include "controls/AccessibleReading.h"
#include "defaults/BackgroundWrites.h"
#include "desktop/ApplicationService.h"
#include "desktop/DesktopRequests.h"
#include "desktop/ReelCall.h"
#include "desktop/StayAwake.h"
#include "desktop/application_id.h"
#include "desktop/hand_over.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QTimer>

#include <fontconfig/fontconfig.h>

#include <cstdio>
#include <functional>
#include <future>
#include <optional>

namespace {

using namespace vexa;

int refuse(const QString& message, int exitCode = 2) {
    complain(message);
    return exitCode;
}

/// Empty if one of them is not UTF-8, since a QString cannot hold such a file name.
std::optional<QStringList> argumentsOf(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments += QString::fromUtf8(argv[i]);
        if (arguments.constLast().toUtf8() != argv[i])
            return {};
    }
    return arguments;
}

int listDestinations(MidiSystem& system) {
    const auto table = destinationTable(system);
    std::fputs(table.c_str(), stdout);
    if (table.empty())
        complain(QStringLiteral("there are no MIDI destinations"));
    return 0;
}

Vexa_MIDI_Manager& managerOf(MidiSystem& system) {
    Vexa_MIDI_Manager::setMidiSystem(&system);
    return Vexa_MIDI_Manager::sharedMidiManager();
}

/// Connects to the requested destination once the system has been reached, or reports why it
/// cannot.
void chooseDestination(MidiSystem& system, Vexa_MIDI_Manager& manager, const CommandLine& line,
                       const std::function<void(const QString& fault)>& onFault) {
    if (!line.destination)
        return;
    system.whenReached([&system, &manager, name = *line.destination, onFault] {
        const auto found = destinationNamed(name, system);
        if (const auto* error = std::get_if<CommandLineError>(&found))
            onFault(error->message);
        else
            manager.connectToDestinationAtIndex(*std::get_if<std::int64_t>(&found));
    });
}

/// Whether a running instance has taken over this launch. A launch that names a MIDI system or a
/// destination gets its own window, so that no message goes to the wrong destination.
bool isTakenOver(ApplicationService& service, const CommandLine& line, const QVariantMap& tokens) {
    constexpr int patience = 5000; // ms
    if (service.takeName() != BusName::taken || line.destination || line.midi)
        return false;
    if (handOver(QDBusConnection::sessionBus(), line.file, tokens, patience))
        return true;
    complain(QStringLiteral("the running instance is not responding; starting another"));
    service.takeName(); // if the other one was just quitting, later launches come here
    return false;
}

/// Called once the window is shown, because reading a picture would delay it. The desktop's icon
/// themes would take three times as long.
void showIcon() { QApplication::setWindowIcon(QIcon(QStringLiteral(":/vexa-remote-48.png"))); }

int runWindow(const CommandLine& line, const QVariantMap& tokens) {
    AccessibleButton::install();
    AccessiblePopup::install();
    AccessibleReading::install();
    const defaults::BackgroundWrites preferences;
    ApplicationService service(QDBusConnection::sessionBus());
    // The bus call and the opening of the MIDI system run while the window is being built.
    auto opening = std::async(std::launch::async, [&] {
        return isTakenOver(service, line, tokens) ? nullptr : openMidiSystem(line.midi);
    });
    MainWindow window;
    const auto system = opening.get();
    if (!system)
        return 0;
    auto& manager = managerOf(*system);
    int failure = 0;
    chooseDestination(*system, manager, line, [&failure](const QString& fault) {
        failure = refuse(fault);
        QCoreApplication::exit(failure); // for a fault that is found after start-up
    });
    if (failure != 0)
        return failure;
    TimerfdRunLoop runLoop;
    Vexa_RemoteAppDelegate controller(window.outlets(), runLoop);
    controller.applicationDidFinishLaunching();
    window.connectTo(controller, manager);
    const DesktopRequests desktop(window, controller, service);
    const StayAwake awake(controller.run());
    const ReelCall reelCall(window, controller.run(), QDBusConnection::sessionBus());
    // Not quit(), which would ask about an unsaved list: a signal's sender cannot answer.
    const TerminationSignals signals([] { QCoreApplication::exit(); });
    if (!line.file.isNull())
        controller.openFile(QFileInfo(line.file).absoluteFilePath());
    window.show();
    QTimer::singleShot(0, &window, showIcon);
    return QCoreApplication::exec();
}

int runInTerminal(const CommandLine& line) {
    const bool stripes = line.mode == CommandLine::Mode::stripe;
    if (const auto obstacle = stripes ? obstacleToStripe(line) : std::nullopt)
        return refuse(obstacle->message);
    const auto system = openMidiSystem(line.midi);
    system->numberOfDestinations(); // waits until the system has been reached
    if (!stripes)
        return listDestinations(*system);
    auto& manager = managerOf(*system);
    int failure = 0;
    chooseDestination(*system, manager, line,
                      [&failure](const QString& fault) { failure = refuse(fault); });
    return failure != 0 ? failure : stripeInTerminal(line, *system, manager);
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char* argv[]) {
    const auto arguments = argumentsOf(argc, argv);
    if (!arguments)
        return refuse(QStringLiteral("an argument is not UTF-8"));
    const auto parsed = parseCommandLine(*arguments);
    if (const auto* error = std::get_if<CommandLineError>(&parsed))
        return refuse(error->message);
    const auto& line = *std::get_if<CommandLine>(&parsed);

    QCoreApplication::setApplicationName(QStringLiteral("Vexa Remote"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VEXA_VERSION));
    QGuiApplication::setDesktopFileName(applicationId);
    int forQt = 1; // only the program's name: the other arguments have been parsed
    if (line.mode == CommandLine::Mode::window) {
        if (QFileInfo(line.file).isDir())
            return refuse(QStringLiteral("\"%1\" is a folder").arg(line.file));
        if (!hasDisplay())
            return refuse(
                QStringLiteral("there is no display; see --help for striping without one"), 1);
        const auto tokens = startupTokens();
        // Otherwise the first text would wait for this, instead of Qt's start.
        auto fonts = std::async(std::launch::async, FcInit);
        const QApplication application(forQt, argv);
        fonts.wait();
        return runWindow(line, tokens);
    }
    const QCoreApplication application(forQt, argv);
    switch (line.mode) {
    case CommandLine::Mode::help:
        std::fputs(qUtf8Printable(commandLineHelp()), stdout);
        return 0;
    case CommandLine::Mode::version:
        std::puts("vexa-remote " VEXA_VERSION);
        return 0;
    case CommandLine::Mode::importRows:
        return importInTerminal(line);
    case CommandLine::Mode::checkList:
        return checkInTerminal(line);
    default:
        return runInTerminal(line);
    }
}
