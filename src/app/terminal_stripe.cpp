#include "app/terminal_stripe.h"

#include "app/TimerfdRunLoop.h"
#include "app/complaint.h"
#include "app/midi_choice.h"
#include "app/silent_outlets.h"
#include "app/terminal_outlets.h"
#include "app/termination_signals.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/display_name.h"
#include "text/printable.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <QCoreApplication>

#include <cstdio>

namespace vexa {

namespace {

constexpr int noDestination = 3;
constexpr int interrupted = 130;

std::string text(std::uint64_t packed) {
    return timecodeText(unpack(static_cast<PackedTimecode>(packed)));
}

std::string codes(const Vexa_RemoteAppDelegate& controller) {
    return std::string(frameRateForCode(controller.frameRate()).name) + ", " +
           std::string(syncTypeName(controller.syncType()));
}

/// The controller with a terminal for its window.
class TerminalStripe {
public:
    explicit TerminalStripe(Vexa_MIDI_Manager& midiManager) : m_midiManager(midiManager) {
        m_controller.applicationDidFinishLaunching();
        QObject::connect(&m_controller.run(), &StripeRun::itemTaken, &m_controller,
                         [this] { showItem(m_controller.run().progress().item); });
        QObject::connect(&m_controller.run(), &StripeRun::phaseChanged, &m_controller, [this] {
            if (m_controller.run().progress().phase == Phase::betweenItems)
                showPause();
        });
    }

    void setUp(const CommandLine& line) {
        if (line.file.isNull())
            setUpSingle(line);
        else
            setUpList(line);
    }

    /// atItsEnd: the exit code of a run that is not interrupted.
    int run(int atItsEnd) {
        bool wasInterrupted = false;
        const TerminationSignals signals([&] {
            wasInterrupted = true;
            m_alerts.dismiss();
            m_controller.handleStripeMenuItems(transport::stopped);
        });
        // Queued: the end of a run has more to do after it becomes known.
        QObject::connect(
            &m_controller, &Vexa_RemoteAppDelegate::stateChanged, qApp,
            [&] {
                if (m_controller.transportState() == transport::stopped)
                    QCoreApplication::exit(wasInterrupted || m_alerts.wentUnanswered() ? interrupted
                                                                                       : atItsEnd);
            },
            Qt::QueuedConnection);
        // The list comes after all that was sent before it: by then the way to the generator is
        // open, and it starts when the clock does.
        m_midiManager.destinationList();
        m_controller.handleStripeMenuItems(transport::playing);
        const int result = QCoreApplication::exec();
        m_clock.setHeading({});
        return result;
    }

private:
    void setUpSingle(const CommandLine& line) {
        if (line.rate)
            m_controller.handleFrameRateMenuItems(*line.rate);
        if (line.type)
            m_controller.handleSyncTypeMenuItems(*line.type);
        const auto stop = pack(line.stop.value_or(Timecode{}));
        m_controller.setStartTime(pack(*line.start), stop, {});
        if (line.stop)
            m_controller.setStopTimeSet(true, stop, {});
        m_clock.setHeading(text(m_controller.startTime()) +
                           (line.stop ? " to " + text(stop) : " on") + ", " + codes(m_controller));
    }

    void setUpList(const CommandLine& line) {
        m_controller.openListWithURL(line.file);
        m_controller.setUseBatch(true);
        if (!line.rows.empty()) {
            m_outlets.table.selectRows(line.rows);
            m_controller.setBatchMode(batchModeSelected);
        }
    }

    void showItem(const BatchItemRef& item) {
        m_countdown.stop();
        const auto title = m_controller.batchStripeData().titleOfItem(item).toStdString();
        m_clock.setHeading((title.empty() ? "(no title)" : printable(title)) + "  " +
                           text(m_controller.currentTime()) + " to " +
                           text(m_controller.currentStopTime()) + ", " + codes(m_controller));
    }

    void showPause() {
        m_clock.setHeading({});
        m_countdown.start(m_controller.delayInSeconds());
    }

    Vexa_MIDI_Manager& m_midiManager;
    SilentOutlets m_outlets;
    TerminalClock m_clock;
    TerminalAlerts m_alerts;
    TimerfdRunLoop m_runLoop;
    Countdown m_countdown{m_runLoop};
    Vexa_RemoteAppDelegate m_controller{m_outlets.with(m_clock, m_alerts), m_runLoop};
};

} // namespace

int stripeInTerminal(const CommandLine& line, MidiSystem& system, Vexa_MIDI_Manager& midiManager) {
    const auto destination = midiManager.dest();
    const bool isExpected = destination || (line.midi && !line.midi->hasDestinations);
    if (!isExpected)
        complain(QStringLiteral("there is no MIDI destination: nothing will be sent"));
    else
        std::printf("Destination: %s\n",
                    destination ? printable(destinationName(system, destination)).c_str() : "none");
    TerminalStripe stripe(midiManager);
    stripe.setUp(line);
    return stripe.run(isExpected ? 0 : noDestination);
}

} // namespace vexa
