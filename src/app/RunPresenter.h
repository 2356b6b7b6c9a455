#pragma once

#include "engine/RunTeller.h"

#include <QPointer>
#include <QTimer>

#include <vector>

class QLabel;

namespace vexa {

class DisplayPanel;
class Vexa_MIDI_Manager;
class StatusLineView;
class VexaTimecodeButton;

/// Keeps what tells of the run up to date in the window and in the big clock: once an event, and
/// once a second where a time runs down.
class RunPresenter : public QObject {
    Q_OBJECT

public:
    struct Views {
        StatusLineView& status;
        QLabel& lasts;
        std::vector<VexaTimecodeButton*> entries; ///< where times are typed
    };

    /// All must outlive this.
    RunPresenter(const Vexa_RemoteAppDelegate& controller, const Vexa_MIDI_Manager& manager,
                 const Views& views);

    /// Keeps this one up to date from now on, as long as it is there. Clocks follow that of the
    /// first display, which the controller sets.
    void addDisplay(DisplayPanel& display);

private:
    void refreshSoon();
    void refresh();
    void refreshDestination();
    void followDestination();
    void followTick();
    void tell(DisplayPanel& display, const RunLine& line);
    QString entry() const;
    int millisecondsToNextSecond() const;

    const StripeRun& m_run;
    const Vexa_MIDI_Manager& m_manager;
    RunTeller m_teller;
    const Views m_views;
    std::vector<QPointer<DisplayPanel>> m_displays;
    QTimer m_refresh;
    QTimer m_age;                        ///< of what was last sent
    QTimer m_destinationNews;            ///< what Play sends is one piece of news
    std::optional<double> m_secondsLeft; ///< of the item, as they show
};

} // namespace vexa
