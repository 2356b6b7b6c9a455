#include "app/RunPresenter.h"

#include "controls/DisplayPanel.h"
#include "controls/ElidedLabel.h"
#include "controls/StatusLineView.h"
#include "controls/VexaTimecodeButton.h"
#include "controls/plain_text.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "text/duration_text.h"

#include <QLabel>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vexa {

RunPresenter::RunPresenter(const Vexa_RemoteAppDelegate& controller,
                           const Vexa_MIDI_Manager& manager, const Views& views)
    : m_run(controller.run()), m_manager(manager), m_teller(controller), m_views(views) {
    using namespace std::chrono_literals;
    m_refresh.setSingleShot(true);
    m_refresh.setTimerType(Qt::PreciseTimer);
    connect(&m_refresh, &QTimer::timeout, this, &RunPresenter::refresh);
    connect(&controller, &Vexa_RemoteAppDelegate::stateChanged, this, &RunPresenter::refreshSoon);
    connect(&manager, &Vexa_MIDI_Manager::statusChanged, this, &RunPresenter::followDestination);
    m_destinationNews.setSingleShot(true);
    m_destinationNews.setInterval(100ms);
    connect(&m_destinationNews, &QTimer::timeout, this,
            [this] { m_views.status.announceDestination(); });
    connect(&m_age, &QTimer::timeout, this, &RunPresenter::refreshDestination);
    connect(&m_run, &StripeRun::ticked, this, &RunPresenter::followTick);
    for (auto* entry : m_views.entries)
        connect(entry, &VexaTimecodeButton::shownChanged, this, &RunPresenter::refreshSoon);
    m_age.start(1s);
    refresh();
    refreshDestination();
}

void RunPresenter::followDestination() {
    refreshDestination();
    m_destinationNews.start();
}

void RunPresenter::refreshDestination() {
    const auto& status = m_manager.status();
    const auto text = statusText(status, DestinationStatus::Clock::now());
    m_views.status.tellDestination(QString::fromStdString(text),
                                   status.presence == DestinationStatus::Presence::there);
}

void RunPresenter::addDisplay(DisplayPanel& display) {
    if (!m_displays.empty())
        display.clock().follow(m_displays.front()->clock());
    m_displays.emplace_back(&display);
    refresh();
}

void RunPresenter::refreshSoon() { m_refresh.start(0); }

/// Most frames change only the clock; the rest is refreshed when a displayed second changes.
void RunPresenter::followTick() {
    const auto shown = [](const auto& left) { return left ? timeLeftText(*left) : std::string(); };
    const std::pair left(shown(m_teller.leftOfItem()), shown(m_teller.leftOfRun()));
    if (std::exchange(m_shownLeft, left) != left)
        refresh();
}

void RunPresenter::refresh() {
    const auto line = m_teller.line(QTime::currentTime());
    std::erase_if(m_displays, [](const auto& display) { return !display; });
    for (const auto& display : m_displays)
        tell(*display, line);
    m_views.status.tell(m_teller.status(entry()));
    m_views.lasts.setText(m_teller.lasts());
    if (m_run.progress().phase == Phase::betweenItems)
        m_refresh.start(millisecondsToNextSecond());
}

void RunPresenter::tell(DisplayPanel& display, const RunLine& line) {
    display.tell(m_run.progress().phase, line);
    display.runLine().title().setText(singleLine(m_teller.itemTitle()));
}

QString RunPresenter::entry() const {
    for (const auto* display : m_views.entries)
        if (const auto concern = display->entryConcern(); !concern.isEmpty())
            return concern;
    return {};
}

/// The time until the pause, or the run that counts down with it, shows another second.
int RunPresenter::millisecondsToNextSecond() {
    constexpr double msPerSecond = 1000;
    const auto begunSecond = [](const auto& time) {
        const double left = time.value_or(RunLoop::Seconds{}).count();
        return left - std::floor(left);
    };
    // A run that does not end shows no time.
    const auto pause = m_run.pauseLeft();
    const auto run = m_teller.leftOfRun();
    const double part = std::min(begunSecond(pause), begunSecond(run ? run : pause));
    return static_cast<int>(std::ceil(part * msPerSecond)) + 1;
}

} // namespace vexa
