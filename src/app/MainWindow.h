#pragma once

#include "app/WindowSize.h"
#include "controls/AddToBatchPanelOnDemand.h"
#include "controls/FileDialogPanels.h"
#include "controls/MessageBoxAlerts.h"
#include "controls/PreferencesOnDemand.h"
#include "controls/RecentFiles.h"
#include "controls/outlet_adapters.h"

#include <QMainWindow>

#include <memory>
#include <optional>
#include <vector>

namespace Ui {
class MainWindow;
}

namespace vexa {

class RunPresenter;
class WindowViews;

/// The main window. It lays out the controls, lends them to the controller as outlets and forwards
/// the operator's actions. It decides nothing.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    const Outlets& outlets() const { return *m_outlets; }

    /// Connects the controls and menus to the controller, and the choice of destination to the
    /// manager. Both must outlive the use of the window. Call once, after the controller has
    /// started up.
    void connectTo(Vexa_RemoteAppDelegate& controller, Vexa_MIDI_Manager& midiManager);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addCells();
    void makeOutlets();
    void connectBatchControlsTo(Vexa_RemoteAppDelegate& controller);

    std::unique_ptr<Ui::MainWindow> m_ui;
    WindowTitleOutlet m_title{*this};
    MessageBoxAlerts m_alerts{*this};
    FileDialogPanels m_filePanels{*this};
    RecentFiles m_recentFiles;
    PreferencesOnDemand m_prefsController{*this};
    AddToBatchPanelOnDemand m_addToPanel{*this};
    std::vector<std::unique_ptr<Button>> m_buttons;
    std::unique_ptr<TextField> m_stripeItemLabel;
    std::unique_ptr<RunPresenter> m_presenter;
    std::unique_ptr<WindowViews> m_views;
    std::optional<WindowSize> m_size;
    std::optional<Outlets> m_outlets; ///< set by the constructor
    Vexa_RemoteAppDelegate* m_controller = nullptr;
};

} // namespace vexa
