// Where the time of a start goes: starts the program's window as the program does, and prints the
// milliseconds of each stage, one a line. Argument: the time of the launch in nanoseconds of
// CLOCK_MONOTONIC.

#include "app/MainWindow.h"
#include "app/TimerfdRunLoop.h"
#include "app/midi_choice.h"
#include "defaults/BackgroundWrites.h"
#include "desktop/ApplicationService.h"
#include "desktop/DesktopRequests.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"

#include <QApplication>
#include <QFontMetrics>

#include <fontconfig/fontconfig.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <future>

using namespace vexa;

namespace {

std::int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec;
}

class Stages {
public:
    explicit Stages(std::int64_t start) : m_last(start) {}

    void end(const char* stage) {
        const auto time = now();
        std::printf("%s\t%.3f\n", stage, static_cast<double>(time - m_last) / 1e6);
        m_last = now();
    }

private:
    std::int64_t m_last;
};

/// Ends the program when the window has been drawn.
class FirstFrame final : public QObject {
public:
    explicit FirstFrame(QWidget& window) : m_window(window) { window.installEventFilter(this); }

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && !m_isDrawn) {
            m_isDrawn = true;
            QMetaObject::invokeMethod(
                &m_window, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
        }
        return false;
    }

    QWidget& m_window;
    bool m_isDrawn = false;
};

} // namespace

int main(int argc, char* argv[]) {
    Stages stages(argc > 1 ? std::atoll(argv[1]) : now());
    stages.end("exec, libraries loaded and linked");

    auto fonts = std::async(std::launch::async, FcInit);
    const QApplication application(argc, argv);
    stages.end("QApplication: platform plugin, connection to the screen");
    fonts.wait();
    stages.end("waited for the font configuration, read meanwhile");
    QFontMetrics(QApplication::font()).horizontalAdvance(QStringLiteral("Text"));
    stages.end("font list, first font");

    const defaults::BackgroundWrites preferences;
    ApplicationService service(QDBusConnection::sessionBus());
    auto opening = std::async(std::launch::async, [&service] {
        service.takeName();
        return openMidiSystem({});
    });
    stages.end("session bus, MIDI system begun in the background");
    MainWindow window;
    stages.end("widgets of the window");
    const auto system = opening.get();
    stages.end("waited for the session bus and the MIDI thread");
    Vexa_MIDI_Manager::setMidiSystem(system.get());
    auto& manager = Vexa_MIDI_Manager::sharedMidiManager();
    TimerfdRunLoop runLoop;
    Vexa_RemoteAppDelegate controller(window.outlets(), runLoop);
    controller.applicationDidFinishLaunching();
    stages.end("settings, batch table");
    window.connectTo(controller, manager);
    const DesktopRequests desktop(window, controller, service);
    stages.end("menus, connections");
    const FirstFrame firstFrame(window);
    window.show();
    stages.end("layout, native window");
    QCoreApplication::exec();
    stages.end("first frame");
    std::fflush(stdout);
    std::_Exit(0); // what follows is not the start
}
