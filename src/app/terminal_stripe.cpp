#include "app/terminal_stripe.h"

#include "app/RunLog.h"
#include "app/TimerfdRunLoop.h"
#include "app/complaint.h"
#include "app/midi_choice.h"
#include "app/silent_outlets.h"
#include "app/terminal_outlets.h"
#include "app/termination_signals.h"
#include "desktop/StayAwake.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/display_name.h"
#include "text/printable.h"
#include "timecode/timecode.h"

#include <QCoreApplication>

#include <cstdio>
#include <optional>

namespace vexa {

namespace {

constexpr int noDestination = 3;
constexpr int interrupted = 130;

/// The controller, with a terminal in place of the window.
class TerminalStripe {
public:
    explicit TerminalStripe(ProgressOutput& output) : m_output(output) {
        m_controller.applicationDidFinishLaunching();
    }

    void setUp(const CommandLine& line) {
        if (line.file.isNull())
            setUpSingle(line);
        else
            setUpList(line);
        if (!line.log.isNull())
            m_log.emplace(line.log, m_controller.run(), m_controller.batchStripeData());
    }

    /// atItsEnd: the exit code unless the run is interrupted.
    int run(int atItsEnd) {
        bool wasInterrupted = false;
        const TerminationSignals signals([&] {
            wasInterrupted = true;
            m_alerts.dismiss();
            m_controller.handleStripeMenuItems(transport::stopped);
        });
        // Queued, because the run has more to do after it announces its end.
        QObject::connect(
            &m_controller, &Vexa_RemoteAppDelegate::stateChanged, qApp,
            [&] {
                if (m_controller.transportState() == transport::stopped)
                    QCoreApplication::exit(wasInterrupted || m_alerts.wentUnanswered() ? interrupted
                                                                                       : atItsEnd);
            },
            Qt::QueuedConnection);
        connectOutput();
        m_controller.handleStripeMenuItems(transport::playing);
        return QCoreApplication::exec();
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
    }

    void setUpList(const CommandLine& line) {
        m_controller.openListWithURL(line.file);
        m_controller.setUseBatch(true);
        if (!line.rows.empty()) {
            m_outlets.table.selectRows(line.rows);
            m_controller.setBatchMode(batchModeSelected);
        }
    }

    void connectOutput() {
        const auto& run = m_controller.run();
        QObject::connect(&run, &StripeRun::ticked, &m_controller, [this, &run] {
            const auto time = unpack(static_cast<PackedTimecode>(run.currentTime()));
            if (m_output.wantsFrame(time.seconds))
                m_output.showFrame(reportOf(run, m_times));
        });
        QObject::connect(&run, &StripeRun::phaseChanged, &m_controller, [this, &run] {
            m_countdown.stop();
            m_output.showPhase(reportOf(run, m_times));
            if (run.progress().phase == Phase::betweenItems)
                m_countdown.start(m_controller.delayInSeconds());
        });
    }

    SilentOutlets m_outlets;
    ProgressOutput& m_output;
    SilentEntry m_clock; // silent: the output gets its frames from the run
    TerminalAlerts m_alerts{m_output};
    TimerfdRunLoop m_runLoop;
    Vexa_RemoteAppDelegate m_controller{m_outlets.with(m_clock, m_alerts), m_runLoop};
    StayAwake m_awake{m_controller.run()};
    std::optional<RunLog> m_log;
    RunTimes m_times{m_controller.run()};
    Countdown m_countdown{m_runLoop, [this](std::int64_t seconds) {
                              m_output.showPause(reportOf(m_controller.run(), m_times), seconds);
                          }};
};

} // namespace

int stripeInTerminal(const CommandLine& line, MidiSystem& system, Vexa_MIDI_Manager& midiManager) {
    const auto destination = midiManager.dest();
    const bool isExpected = destination || (line.midi && !line.midi->hasDestinations);
    if (!isExpected)
        complain(QStringLiteral("there is no MIDI destination: nothing will be sent"));
    else if (!line.progressAsJson)
        std::printf("Destination: %s\n",
                    destination ? printable(destinationName(system, destination)).c_str() : "none");
    const auto output = line.progressAsJson ? jsonProgress(midiManager) : textProgress();
    TerminalStripe stripe(*output);
    stripe.setUp(line);
    return stripe.run(isExpected ? 0 : noDestination);
}

} // namespace vexa
