// The cost of one clock tick in the window, without and with the big clock: the events it causes,
// the area it repaints, and the processor time. Argument: the number of seconds, by default 10.

#include "app/MainWindow.h"
#include "app/TimerfdRunLoop.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QPaintEvent>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <string>

using namespace vexa;

namespace {

struct Tally {
    long events = 0;
    long pixels = 0; ///< of paint events
};

/// Counts every event of the application by its type and its widget.
class EventCounter final : public QObject {
public:
    std::map<std::string, Tally> tallies;

private:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        const auto* type = QMetaEnum::fromType<QEvent::Type>().valueToKey(event->type());
        const auto name = receiver->objectName().isEmpty()
                              ? QString::fromLatin1(receiver->metaObject()->className())
                              : receiver->objectName();
        auto& tally = tallies[std::string(type ? type : "?") + " | " + name.toStdString()];
        ++tally.events;
        if (event->type() == QEvent::Paint)
            for (const auto& rectangle : static_cast<QPaintEvent*>(event)->region())
                tally.pixels += rectangle.width() * rectangle.height();
        return false;
    }
};

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void runFor(RunLoop& runLoop, RunLoop::Seconds time) {
    const auto end = runLoop.scheduleTimer(time, false, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}

/// Chooses an item of the window's menu bar.
void choose(const MainWindow& window, const QString& menu, const QString& title) {
    for (const auto* top : window.menuBar()->actions())
        for (auto* item : top->menu()->actions())
            if (top->text() == menu && item->text() == title)
                item->trigger();
}

/// Lets the clock run and prints what that costs.
void measure(const char* what, TimerfdRunLoop& runLoop, RunLoop::Seconds measured, double frames) {
    EventCounter counter;
    QCoreApplication::instance()->installEventFilter(&counter);
    const double before = processorSeconds();
    runFor(runLoop, measured);
    const double spent = processorSeconds() - before;
    QCoreApplication::instance()->removeEventFilter(&counter);

    const double ticks = measured.count() * frames;
    std::printf("## Clock tick: what it costs %s, on platform %s\n\n"
                "Aim: under 2 %% of a core. Processor time a tick: %.0f us, which is %.2f %% of a "
                "core at %g frames.\n\n"
                "| event | receiver | a tick | pixels painted a tick |\n|---|---|---|---|\n",
                what, qUtf8Printable(QGuiApplication::platformName()), spent / ticks * 1e6,
                spent / measured.count() * 100, frames);
    for (const auto& [event, tally] : counter.tallies)
        std::printf("| %s | %.2f | %.0f |\n", event.c_str(),
                    static_cast<double>(tally.events) / ticks,
                    static_cast<double>(tally.pixels) / ticks);
}

} // namespace

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const RunLoop::Seconds measured(argc > 1 ? std::atof(argv[1]) : 10.0);

    NoMidiSystem midi;
    Vexa_MIDI_Manager::setMidiSystem(&midi);
    TimerfdRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller(window.outlets(), runLoop);
    controller.applicationDidFinishLaunching();
    window.connectTo(controller, Vexa_MIDI_Manager::sharedMidiManager());
    window.show();
    controller.handleStripeMenuItems(transport::playing);
    runFor(runLoop, RunLoop::Seconds(1)); // until the window is idle

    measure("the window", runLoop, measured, controller.frameCount());
    std::puts("");
    choose(window, QStringLiteral("&View"), QStringLiteral("&Big Clock"));
    runFor(runLoop, RunLoop::Seconds(1));
    measure("the window and the big clock", runLoop, measured, controller.frameCount());
}
