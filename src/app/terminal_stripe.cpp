#include "app/terminal_stripe.h"

#include "app/complaint.h"
#include "app/terminal_outlets.h"
#include "app/termination_signals.h"
#include "engine/TimerfdRunLoop.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "text/printable.h"

#include <QCoreApplication>

namespace vexa {

namespace {

constexpr int wrongArguments = 2;
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
    TerminalStripe() {
        m_controller.applicationDidFinishLaunching();
        m_progress.onMark = [this](const BatchItemRef& item, StripeMark mark) {
            if (mark == StripeMark::underWay)
                showItem(item);
            else
                showPause();
        };
    }

    /// False, with a line that says why, when there is no such stripe.
    bool setUp(const CommandLine& line) {
        return line.file.isNull() ? setUpSingle(line) : setUpList(line);
    }

    int run() {
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
                                                                                       : 0);
            },
            Qt::QueuedConnection);
        // The list comes after all that was sent before it: by then the way to the generator is
        // open, and it starts when the clock does.
        Vexa_MIDI_Manager::sharedMidiManager().destinationList();
        m_controller.handleStripeMenuItems(transport::playing);
        const int result = QCoreApplication::exec();
        m_clock.setHeading({});
        return result;
    }

private:
    Outlets outlets() {
        auto outlets = m_plain.outlets(m_alerts);
        outlets.currentTimeButton = &m_clock;
        outlets.batchTable = &m_progress;
        return outlets;
    }

    bool setUpSingle(const CommandLine& line) {
        if (line.rate)
            m_controller.handleFrameRateMenuItems(*line.rate);
        if (line.type)
            m_controller.handleSyncTypeMenuItems(*line.type);
        if (!existsHere("start", *line.start) || (line.stop && !existsHere("stop", *line.stop)))
            return false;
        const auto stop = pack(line.stop.value_or(Timecode{}));
        m_controller.setStartTime(pack(*line.start), stop, {});
        if (line.stop)
            m_controller.setStopTimeSet(true, stop, {});
        m_clock.setHeading(text(m_controller.startTime()) +
                           (line.stop ? " to " + text(stop) : " on") + ", " + codes(m_controller));
        return true;
    }

    bool existsHere(const char* what, const Timecode& time) const {
        const auto& rate = frameRateForCode(m_controller.frameRate());
        if (isValid(time, rate))
            return true;
        complain(QStringLiteral("there is no %1 time %2 at %3")
                     .arg(QString::fromLatin1(what), QString::fromStdString(timecodeText(time)),
                          QString::fromStdString(std::string(rate.name))));
        return false;
    }

    bool setUpList(const CommandLine& line) {
        m_controller.openListWithURL(line.file);
        const auto items = m_controller.batchStripeData().numItems();
        if (items == 0 || (!line.rows.empty() && *line.rows.rbegin() >= items)) {
            complain(QStringLiteral("%1 has %2 items").arg(line.file, QString::number(items)));
            return false;
        }
        m_controller.setUseBatch(true);
        if (!line.rows.empty()) {
            m_progress.selectRows(line.rows);
            m_controller.setBatchMode(batchModeSelected);
        }
        return true;
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
        // Queued: whether another item follows is known when this one has been left.
        QMetaObject::invokeMethod(
            qApp,
            [this] {
                if (m_controller.transportState() == transport::pausedBetweenItems)
                    m_countdown.start(m_controller.delayInSeconds());
            },
            Qt::QueuedConnection);
    }

    PlainOutlets m_plain;
    TerminalClock m_clock;
    RunProgress m_progress;
    TerminalAlerts m_alerts;
    TimerfdRunLoop m_runLoop;
    Countdown m_countdown{m_runLoop};
    Vexa_RemoteAppDelegate m_controller{outlets(), m_runLoop};
};

} // namespace

int stripeInTerminal(const CommandLine& line) {
    TerminalStripe stripe;
    return stripe.setUp(line) ? stripe.run() : wrongArguments;
}

} // namespace vexa
