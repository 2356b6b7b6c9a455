#include "controls/VexaPrefsController.h"

#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "ui_PreferencesPanel.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace vexa {

namespace {

using namespace std::chrono_literals;

constexpr auto destinationsInterval = 1s;
constexpr int delayFieldTag = 0;
constexpr int delayStepperTag = 1;

/// Shows an item's state by a check mark: check boxes would suggest that several can be chosen.
class CheckMarkDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
        if (option->checkState == Qt::Checked)
            option->text += QStringLiteral("  ✓");
    }
};

template<class Integer>
Integer saturated(double value) {
    using Range = std::numeric_limits<Integer>;
    if (value >= static_cast<double>(Range::max()))
        return Range::max();
    return value > static_cast<double>(Range::min()) ? static_cast<Integer>(value) : Range::min();
}

void addCode(QComboBox& popup, std::string_view name, std::uint64_t code) {
    popup.addItem(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
                  static_cast<qlonglong>(code));
}

std::int64_t selectedTag(const QComboBox& popup) { return popup.currentData().toLongLong(); }

} // namespace

VexaPrefsController::VexaPrefsController(QWidget& window, Vexa_RemoteAppDelegate& owner,
                                         Vexa_MIDI_Manager& midiManager)
    : m_prefsPanel(&window),
      m_ui(std::make_unique<Ui::PreferencesPanel>()),
      m_owner(owner),
      m_midiManager(midiManager) {
    m_ui->setupUi(&m_prefsPanel);
    for (const auto& rate : frameRates)
        addCode(*m_ui->defaultFrameRatePopup, rate.name, rate.code);
    for (std::uint64_t code = 0; code < sync::count; ++code)
        addCode(*m_ui->defaultSyncTypePopup, syncTypeName(code), code);

    for (auto* popup : m_prefsPanel.findChildren<QComboBox*>()) {
        popup->setAccessibleDescription(popup->currentText());
        QObject::connect(popup, &QComboBox::currentTextChanged, popup,
                         &QWidget::setAccessibleDescription);
    }
    for (auto* popup : {m_ui->defaultFrameRatePopup, m_ui->defaultSyncTypePopup}) {
        popup->setItemDelegate(new CheckMarkDelegate(popup));
        QObject::connect(popup, &QComboBox::currentIndexChanged, popup,
                         [popup] { preparePopup(*popup, selectedTag(*popup)); });
    }
    QObject::connect(m_ui->delayField, &QLineEdit::textChanged, &m_prefsPanel,
                     [this] { handlePrefControls(delayFieldTag); });
    QObject::connect(m_ui->delayStepper, &QSpinBox::valueChanged, &m_prefsPanel,
                     [this] { handlePrefControls(delayStepperTag); });
    QObject::connect(m_ui->buttons, &QDialogButtonBox::accepted, &m_prefsPanel,
                     [this] { okPrefsWindow(); });
    QObject::connect(m_ui->buttons, &QDialogButtonBox::rejected, &m_prefsPanel,
                     [this] { cancelPrefsWindow(); });
}

VexaPrefsController::~VexaPrefsController() = default;

void VexaPrefsController::showPreferences() {
    fillPanel();
    QTimer timer(&m_prefsPanel);
    QObject::connect(&timer, &QTimer::timeout, &m_prefsPanel, [this] { followDestinations(); });
    timer.start(destinationsInterval);
    if (m_prefsPanel.exec() == QDialog::Accepted)
        apply();
}

void VexaPrefsController::okPrefsWindow() {
    if (!m_owner.waitingForReelChange())
        m_prefsPanel.done(QDialog::Accepted);
}

void VexaPrefsController::fillPanel() {
    const auto delay = saturated<std::int64_t>(m_owner.delayInSeconds());
    m_ui->delayField->setText(QString::number(delay));
    m_ui->delayField->selectAll();
    m_ui->delayField->setFocus();
    m_ui->pauseForReelChangeCheck->setChecked(m_owner.pauseForReelChange());
    preparePopup(*m_ui->defaultFrameRatePopup,
                 static_cast<std::int64_t>(m_owner.defaultFrameRate()));
    preparePopup(*m_ui->defaultSyncTypePopup, static_cast<std::int64_t>(m_owner.defaultSyncType()));
    m_choice.reset();
    m_names = m_midiManager.destinationList();
    m_ids = m_midiManager.destinationIDs();
    updateMidiPortPopup(*m_ui->midiOutPopup, m_names, indexOfChoice());
}

void VexaPrefsController::apply() {
    m_midiManager.connectToDestinationAtIndex(m_ui->midiOutPopup->currentIndex());
    m_midiManager.writePrefs();
    m_owner.setDelayInSeconds(static_cast<double>(delayFieldValue()));
    m_owner.setPauseForReelChange(m_ui->pauseForReelChangeCheck->checkState() == Qt::Checked);
    m_owner.setDefaultFrameRate(
        static_cast<std::uint64_t>(selectedTag(*m_ui->defaultFrameRatePopup)));
    m_owner.setDefaultSyncType(
        static_cast<std::uint64_t>(selectedTag(*m_ui->defaultSyncTypePopup)));
    m_owner.setFrameAndSyncFromDefaults();
    m_owner.writePrefs();
}

void VexaPrefsController::preparePopup(QComboBox& popup, std::int64_t selectedItemTag) {
    int selected = popup.currentIndex();
    for (int i = popup.count() - 1; i >= 0; --i) {
        const bool on = popup.itemData(i).toLongLong() == selectedItemTag;
        popup.setItemData(i, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        if (on)
            selected = i;
    }
    popup.setCurrentIndex(selected);
}

void VexaPrefsController::updateMidiPortPopup(QComboBox& popup,
                                              const std::vector<std::string>& list,
                                              std::int32_t selectedItem) {
    popup.clear();
    for (const auto& name : list)
        popup.addItem(QString::fromStdString(name));
    popup.setCurrentIndex(selectedItem);
}

void VexaPrefsController::followDestinations() {
    auto& popup = *m_ui->midiOutPopup;
    // Keeps the list while it is open.
    if (popup.view()->isVisible())
        return;
    if (const int shown = popup.currentIndex(); shown >= 0)
        m_choice = m_ids[static_cast<std::size_t>(shown)];
    auto names = m_midiManager.destinationList();
    auto ids = m_midiManager.destinationIDs();
    if (names == m_names && ids == m_ids)
        return;
    m_names = std::move(names);
    m_ids = std::move(ids);
    updateMidiPortPopup(popup, m_names, indexOfChoice());
}

std::int32_t VexaPrefsController::indexOfChoice() const {
    if (!m_choice)
        return m_ids.empty() ? -1 : m_midiManager.indexOfDestination();
    const auto found = std::ranges::find(m_ids, *m_choice);
    return found == m_ids.end() ? -1 : static_cast<std::int32_t>(found - m_ids.begin());
}

void VexaPrefsController::handlePrefControls(int senderTag) {
    if (senderTag == delayFieldTag) {
        // The stepper must not write to the field while the operator types.
        const QSignalBlocker blocker(m_ui->delayStepper);
        m_ui->delayStepper->setValue(saturated<int>(static_cast<double>(delayFieldValue())));
    } else if (senderTag == delayStepperTag) {
        m_ui->delayField->setText(QString::number(m_ui->delayStepper->value()));
    }
}

std::int64_t VexaPrefsController::delayFieldValue() const {
    return std::strtoll(m_ui->delayField->text().toUtf8().constData(), nullptr, 10);
}

} // namespace vexa
