// destination_words alsa|jack: sends messages and prints what the status line says of the
// destination, a line at each change: "TIME<tab>WORDS". TIME is that of the last message, in
// nanoseconds, or 0 before the first. Reads requests from standard input until it ends, a line
// each: "destination NAME", "destination" for none, "start 01:00:00:00" at "25 fps", DTL, and
// "stop".

#include "midi/BackgroundMidiSystem.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/alsa/AlsaMidiDriver.h"
#include "midi/jack/JackMidiDriver.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace {

using namespace vexa;

void printWords() {
    const auto& status = Vexa_MIDI_Manager::sharedMidiManager().status();
    const auto sent = status.sent ? status.sent->at.time_since_epoch() : std::chrono::seconds{0};
    std::cout << std::chrono::nanoseconds(sent).count() << '\t'
              << statusText(status, DestinationStatus::Clock::now()) << std::endl;
}

void choose(const std::string& name) {
    auto& manager = Vexa_MIDI_Manager::sharedMidiManager();
    const auto names = manager.destinationList();
    const auto found = std::ranges::find(names, name);
    manager.connectToDestinationAtIndex(found == names.end() ? -1 : found - names.begin());
}

void handle(const std::string& request) {
    auto& manager = Vexa_MIDI_Manager::sharedMidiManager();
    const auto space = std::min(request.find(' '), request.size());
    const auto argument = request.substr(std::min(space + 1, request.size()));
    if (request.starts_with("destination"))
        choose(argument);
    else if (request == "stop")
        manager.sendStopMessage();
    else if (const auto time = timecodeFromText(argument))
        manager.sendSetupMessageStart(pack(*time), 1, 1);
}

/// Handles the lines that have arrived; quits at the end of the input.
void readRequests(std::string& unread) {
    char bytes[256];
    const auto count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0)
        return QCoreApplication::quit();
    unread.append(bytes, static_cast<std::size_t>(count));
    for (auto end = unread.find('\n'); end != std::string::npos; end = unread.find('\n')) {
        handle(unread.substr(0, end));
        unread.erase(0, end + 1);
    }
}

std::unique_ptr<MidiDriver> makeDriver(const std::string& name) {
    if (name == "jack")
        return std::make_unique<JackMidiDriver>();
    return std::make_unique<AlsaMidiDriver>();
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const std::string driver = argc > 1 ? argv[1] : "";
    BackgroundMidiSystem system([&] { return makeDriver(driver); });
    Vexa_MIDI_Manager::setMidiSystem(&system);
    QObject::connect(&Vexa_MIDI_Manager::sharedMidiManager(), &Vexa_MIDI_Manager::statusChanged,
                     printWords);
    std::string unread;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] { readRequests(unread); });
    QCoreApplication::exec();
    Vexa_MIDI_Manager::setMidiSystem(nullptr);
}
