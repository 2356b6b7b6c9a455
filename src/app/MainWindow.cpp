#include "app/MainWindow.h"

#include "app/RunPresenter.h"
#include "app/WindowViews.h"
#include "controls/ElidedLabel.h"
#include "controls/MainMenu.h"
#include "controls/gray_caption.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "ui_MainWindow.h"

#include <QCloseEvent>

#include <utility>

namespace vexa {

namespace {

/// The background is light whatever the desktop's colours, because the captions have one fixed
/// gray, which is legible on nothing else.
QPalette faceplatePalette() {
    QPalette palette(QColor(0xf4, 0xf5, 0xf5), QColor(0xfd, 0xfd, 0xfd));
    for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, QColor(0xb8, 0xbc, 0xbf));
    palette.setColor(QPalette::Dark, QColor(0xd4, 0xd8, 0xda)); // dividing lines
    return palette;
}

void keepPlaceWhenHidden(QWidget& widget) {
    auto policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

} // namespace

MainWindow::MainWindow() : m_ui(std::make_unique<Ui::MainWindow>()) {
    m_ui->setupUi(this);
    m_ui->faceplate->setPalette(faceplatePalette());
    m_ui->displayPanel->clock().setObjectName(QStringLiteral("currentTimeButton"));
    m_ui->displayPanel->runLine().title().setObjectName(QStringLiteral("currentStripeItemLabel"));
    m_ui->displayPanel->runLine().title().setAccessibleName(tr("Current item"));
    addCells();
    for (auto* button : findChildren<KelGrayTextButton*>())
        button->awakeFromNib();
    for (auto* matrix : findChildren<KelGrayTextMatrix*>())
        matrix->awakeFromNib();
    for (QWidget* caption :
         std::initializer_list<QWidget*>{m_ui->startLabel, m_ui->stopTimeCheck, m_ui->lastsLabel,
                                         m_ui->rateLabel, m_ui->syncLabel, m_ui->batchCheck})
        setGrayCaption(*caption);
    for (auto* comingAndGoing : {m_ui->addToBatchButton, m_ui->removeFromBatchButton})
        keepPlaceWhenHidden(*comingAndGoing);
    m_ui->startTimeButton->setFocus(); // not the transport, the window's first control
    m_views = std::make_unique<WindowViews>(*this, *m_ui->statusLine);
    m_size.emplace(*this);

    m_stripeItemLabel = std::make_unique<TextFieldOutlet>(m_ui->displayPanel->runLine().title());
    makeOutlets();
}

/// Adds a cell for each rate and sync type. Tab reaches them after the times.
void MainWindow::addCells() {
    QWidget* last = m_ui->addToBatchButton;
    const auto add = [&](KelGrayTextMatrix& matrix, std::uint64_t code, std::string_view name) {
        auto& cell = matrix.addCell(code, name);
        setTabOrder(std::exchange(last, &cell), &cell);
    };
    for (const auto& rate : frameRates)
        add(*m_ui->frameRateMatrix, rate.code, rate.name);
    for (std::uint64_t code = 0; code < sync::count; ++code)
        add(*m_ui->syncTypeMatrix, code, syncTypeName(code));
}

void MainWindow::makeOutlets() {
    const auto button = [this](QAbstractButton* widget) {
        return m_buttons.emplace_back(std::make_unique<ButtonOutlet>(*widget)).get();
    };
    m_outlets.emplace(Outlets{
        .window = &m_title,
        .transportMatrix = m_ui->transportMatrix,
        .frameRateMatrix = m_ui->frameRateMatrix,
        .syncTypeMatrix = m_ui->syncTypeMatrix,
        .batchRadios = m_ui->batchRadios,
        .currentTimeButton = &m_ui->displayPanel->clock(),
        .startTimeButton = m_ui->startTimeButton,
        .endTimeButton = m_ui->endTimeButton,
        .stopTimeCheck = button(m_ui->stopTimeCheck),
        .batchCheck = button(m_ui->batchCheck),
        .addToBatchButton = button(m_ui->addToBatchButton),
        .removeFromBatchButton = button(m_ui->removeFromBatchButton),
        .batchTable = m_ui->batchTable,
        .currentStripeItemLabel = m_stripeItemLabel.get(),
        .prefsController = &m_prefsController,
        .addToPanel = &m_addToPanel,
        .alerts = &m_alerts,
        .filePanels = &m_filePanels,
        .recentDocuments = &m_recentFiles,
    });
}

MainWindow::~MainWindow() = default;

void MainWindow::connectTo(Vexa_RemoteAppDelegate& controller, Vexa_MIDI_Manager& midiManager) {
    using Controller = Vexa_RemoteAppDelegate;
    m_controller = &controller;
    const auto* ui = m_ui.get();
    connect(ui->transportMatrix, &KelGrayTextMatrix::action, &controller,
            &Controller::handleTransportButtons);
    connect(ui->frameRateMatrix, &KelGrayTextMatrix::action, &controller,
            &Controller::handleFrameRateRadios);
    connect(ui->syncTypeMatrix, &KelGrayTextMatrix::action, &controller,
            &Controller::handleSyncTypeRadios);
    for (auto* display : {ui->startTimeButton, ui->endTimeButton})
        connect(display, &VexaTimecodeButton::timeChanged, &controller, &Controller::timeChanged);
    connect(ui->startTimeButton, &QAbstractButton::clicked, &controller,
            &Controller::handleStartTimeButton);
    connect(ui->endTimeButton, &QAbstractButton::clicked, &controller,
            &Controller::handleStopTimeButton);
    connect(ui->stopTimeCheck, &QAbstractButton::clicked, &controller,
            &Controller::handleStopTimeCheck);
    m_prefsController.setOwner(controller, midiManager);
    connectBatchControlsTo(controller);
    m_presenter = std::make_unique<RunPresenter>(
        controller, midiManager,
        RunPresenter::Views{
            *ui->statusLine, *ui->lastsLabel, {ui->startTimeButton, ui->endTimeButton}});
    m_presenter->addDisplay(*ui->displayPanel);
    const auto* menu = new MainMenu(*menuBar(), controller, m_recentFiles, *m_views);
    m_views->setUp(*m_presenter,
                   {menu->item(MenuAction::handleStripeMenuItems, transport::stopped),
                    menu->item(MenuAction::handleStripeMenuItems, transport::playing),
                    menu->item(MenuAction::handleStripeMenuItems, transport::paused)});
    connect(ui->statusLine, &StatusLineView::destinationPressed, &controller,
            &Controller::handlePrefsMenu, Qt::QueuedConnection);
}

void MainWindow::connectBatchControlsTo(Vexa_RemoteAppDelegate& controller) {
    using Controller = Vexa_RemoteAppDelegate;
    const auto* ui = m_ui.get();
    connect(ui->batchCheck, &QAbstractButton::clicked, &controller, &Controller::handleBatchCheck);
    connect(ui->batchRadios, &KelGrayTextMatrix::action, &controller,
            &Controller::handleBatchRadios);
    connect(ui->addToBatchButton, &QAbstractButton::clicked, &controller,
            &Controller::handleAddToBatchListButton);
    connect(ui->removeFromBatchButton, &QAbstractButton::clicked, &controller,
            &Controller::handleRemoveFromBatchListButton);
    connect(ui->batchTable, &VexaBatchTableView::vexarowsdeleted, &controller,
            &Controller::handleDeleteRows);
    connect(ui->batchTable, &VexaBatchTableView::selectionDidChange, &controller,
            &Controller::tableViewSelectionDidChange);
    connect(ui->batchTable, &QAbstractItemView::clicked, &controller,
            &Controller::handleBatchTableEdit);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    const auto margins = m_ui->faceplateLayout->contentsMargins();
    m_ui->displayPanel->limitClockHeight(height() / 3, width() - margins.left() - margins.right());
    m_ui->faceplateLayout->activate();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!m_controller || m_controller->windowShouldClose());
}

} // namespace vexa
