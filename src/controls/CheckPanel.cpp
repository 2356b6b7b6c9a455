#include "controls/CheckPanel.h"

#include "controls/VexaBatchTableView.h"
#include "controls/plain_text.h"
#include "defaults/user_defaults.h"
#include "engine/Vexa_RemoteAppDelegate.h"

#include <QFormLayout>
#include <QLabel>
#include <QListView>
#include <QScreen>
#include <QShowEvent>
#include <QSpinBox>
#include <QVBoxLayout>

#include <utility>

namespace vexa {

void FindingsModel::setFindings(std::vector<Finding> findings) {
    beginResetModel();
    m_findings = std::move(findings);
    endResetModel();
}

int FindingsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_findings.size());
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const auto& finding = m_findings[static_cast<std::size_t>(index.row())];
    return singleLine(
        tr("Row %1, “%2” %3").arg(finding.row + 1).arg(finding.item->title, findingText(finding)));
}

CheckPanel::CheckPanel(Vexa_RemoteAppDelegate& controller, VexaBatchTableView& table,
                       QWidget* window)
    : QDialog(window, Qt::Tool),
      m_controller(controller),
      m_table(table),
      m_summary(newPlainLabel({})),
      m_list(new QListView),
      m_minutes(new QSpinBox) {
    constexpr int longestTape = 9999;
    setPlainWindowTitle(*this, tr("Check List"));
    m_list->setModel(&m_model);
    m_list->setUniformItemSizes(true);
    m_list->setAccessibleName(tr("Findings"));
    m_minutes->setRange(0, longestTape);
    m_minutes->setSuffix(tr(" min"));
    m_minutes->setSpecialValueText(tr("any"));
    m_minutes->setAccessibleName(tr("Tape length"));
    m_minutes->setValue(static_cast<int>(defaults::read().tapeMinutes.value_or(0)));
    auto* tape = new QFormLayout;
    tape->addRow(tr("Length of a &tape:"), m_minutes);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(tape);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_summary);
    resize(420, 320);

    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &CheckPanel::check);
    connect(&controller, &Vexa_RemoteAppDelegate::stateChanged, this, &CheckPanel::checkSoon);
    connect(table.model(), &QAbstractItemModel::dataChanged, this, &CheckPanel::checkSoon);
    connect(m_minutes, &QSpinBox::valueChanged, this, [this](int minutes) {
        defaults::write({.tapeMinutes = minutes});
        check();
    });
    connect(m_list, &QAbstractItemView::clicked, this, &CheckPanel::goTo);
    connect(m_list, &QAbstractItemView::activated, this, &CheckPanel::goTo);
}

/// Moves the panel beside the window if the screen has room there.
void CheckPanel::moveBeside(const QWidget& window) {
    constexpr int gap = 8;
    const auto corner = window.frameGeometry().topRight() + QPoint(gap, 0);
    const auto frame = QRect(corner, frameGeometry().size());
    if (window.screen()->availableGeometry().contains(frame))
        move(corner);
}

void CheckPanel::showEvent(QShowEvent* event) {
    if (parentWidget() && !event->spontaneous())
        moveBeside(*parentWidget()->window());
    QDialog::showEvent(event);
    check();
}

/// Checks once for all changes of one event.
void CheckPanel::checkSoon() {
    if (isVisible())
        m_soon.start(0);
}

void CheckPanel::check() {
    const auto& items = m_controller.batchStripeData().batchList();
    auto findings = checkList(items, static_cast<std::uint64_t>(m_minutes->value()));
    if (findings == m_model.findings() && !m_summary->text().isEmpty())
        return m_list->viewport()->update(); // titles may differ; keeps the selection
    m_summary->setText(findings.empty() ? tr("Nothing to report.")
                                        : tr("Findings: %1").arg(findings.size()));
    m_model.setFindings(std::move(findings));
}

void CheckPanel::goTo(const QModelIndex& index) {
    const auto finding = m_model.findings()[static_cast<std::size_t>(index.row())];
    const auto rows = m_controller.batchStripeData().rowsOfItems({finding.item});
    if (rows.empty())
        return;
    m_table.selectRows(rows);
    m_table.moveKeyboardTo(rows);
    m_table.scrollToItem(finding.item);
    m_controller.tableViewSelectionDidChange();
}

} // namespace vexa
