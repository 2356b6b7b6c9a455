// The cost of one clock tick in the window, without and with the big clock: events, repainted area
// and processor time. A bare label of the same size, counting at the same rate, stands beside it.
// Argument: the number of seconds of each, by default 10.

#include "app/MainWindow.h"
#include "app/TimerfdRunLoop.h"
#include "bench/window_commands.h"
#include "controls/ClockDisplay.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"

#include <QApplication>
#include <QLabel>
#include <QMetaEnum>
#include <QPaintEvent>

#include <algorithm>
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

/// The processor's seconds for a tick.
double costOfTick(TimerfdRunLoop& runLoop, RunLoop::Seconds measured, double frames) {
    const double before = processorSeconds();
    runFor(runLoop, measured);
    return (processorSeconds() - before) / (measured.count() * frames);
}

/// Lets a label of that size count instead of the clock, and returns its costOfTick().
double costOfLabel(TimerfdRunLoop& runLoop, RunLoop::Seconds measured, double frames,
                   const QSize& size) {
    constexpr double digitsInWidth = 11; // as many as the clock has room for
    constexpr double widthOfDigit = 0.64;
    QLabel label;
    auto font = label.font();
    font.setPixelSize(std::min(size.height(), qRound(size.width() / digitsInWidth / widthOfDigit)));
    label.setFont(font);
    label.setAlignment(Qt::AlignCenter);
    label.resize(size);
    label.show();
    Timecode time;
    const auto ticks = runLoop.scheduleTimer(RunLoop::Seconds(1 / frames), true, [&] {
        time = advanced(time, 1, frameRateForCode(rate::fps30));
        label.setText(QString::fromStdString(timecodeText(time)));
    });
    runFor(runLoop, RunLoop::Seconds(1));
    return costOfTick(runLoop, measured, frames);
}

struct Shown {
    const char* what;
    QSize clock; ///< the size of the largest clock
};

/// Lets the clock run and prints what that costs.
void measure(const Shown& shown, TimerfdRunLoop& runLoop, RunLoop::Seconds measured,
             Vexa_RemoteAppDelegate& controller) {
    const double frames = static_cast<double>(controller.frameCount());
    EventCounter counter;
    QCoreApplication::instance()->installEventFilter(&counter);
    const double cost = costOfTick(runLoop, measured, frames);
    QCoreApplication::instance()->removeEventFilter(&counter);
    controller.handleStripeMenuItems(transport::stopped);
    const double costOfBareLabel = costOfLabel(runLoop, measured, frames, shown.clock);
    controller.handleStripeMenuItems(transport::playing);

    std::printf("## Clock tick: what it costs %s, on platform %s\n\n"
                "Aim: under 2 %% of a core. Processor time a tick: %.0f us, which is %.2f %% of a "
                "core at %g frames.\nA bare label of %d x %d: %.0f us. Ratio: %.2f.\n\n"
                "| event | receiver | a tick | pixels painted a tick |\n|---|---|---|---|\n",
                shown.what, qUtf8Printable(QGuiApplication::platformName()), cost * 1e6,
                cost * frames * 100, frames, shown.clock.width(), shown.clock.height(),
                costOfBareLabel * 1e6, cost / costOfBareLabel);
    const double ticks = measured.count() * frames;
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

    const auto sizeOfLargestClock = [] {
        QSize largest;
        for (const auto* widget : QApplication::allWidgets())
            if (qobject_cast<const ClockDisplay*>(widget) && widget->width() > largest.width())
                largest = widget->size();
        return largest;
    };
    measure({"the window", sizeOfLargestClock()}, runLoop, measured, controller);
    std::puts("");
    choose(window, QStringLiteral("&View"), QStringLiteral("&Big Clock"));
    runFor(runLoop, RunLoop::Seconds(1));
    measure({"the window and the big clock", sizeOfLargestClock()}, runLoop, measured, controller);
}
