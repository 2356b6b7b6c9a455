#pragma once

#include "engine/RunTeller.h"

#include <QPointer>
#include <QTimer>

#include <string>
#include <utility>
#include <vector>

class QLabel;

namespace vexa {

class DisplayPanel;
class Vexa_MIDI_Manager;
class StatusLineView;
class VexaTimecodeButton;

/// Keeps the state of the run up to date in the window and in the big clock: at each event, and
/// each second while a time counts down.
class RunPresenter : public QObject {
    Q_OBJECT

public:
    struct Views {
        StatusLineView& status;
        QLabel& lasts;
        std::vector<VexaTimecodeButton*> entries; ///< the time displays that can be edited
    };

    /// The arguments must outlive this.
    RunPresenter(const Vexa_RemoteAppDelegate& controller, const Vexa_MIDI_Manager& manager,
                 const Views& views);

    /// Keeps the display up to date for as long as it exists. Its clock follows that of the first
    /// display, which the controller sets.
    void addDisplay(DisplayPanel& display);

private:
    void refreshSoon();
    void refresh();
    void refreshDestination();
    void followDestination();
    void followTick();
    void tell(DisplayPanel& display, const RunLine& line);
    QString entry() const;
    int millisecondsToNextSecond();

    const StripeRun& m_run;
    const Vexa_MIDI_Manager& m_manager;
    RunTeller m_teller;
    const Views m_views;
    std::vector<QPointer<DisplayPanel>> m_displays;
    QTimer m_refresh;
    QTimer m_age;                                    ///< updates the age of the last message
    QTimer m_destinationNews;                        ///< announces all that Play sends as one
    std::pair<std::string, std::string> m_shownLeft; ///< of the item, and of the run
};

} // namespace vexa
