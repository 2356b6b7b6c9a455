#include "controls/ImportPanel.h"

#include "controls/in_background.h"
#include "controls/plain_text.h"
#include "interchange/edit_list_reader.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

namespace vexa {

namespace {

QStringList rateNames() {
    QStringList names;
    for (const auto& rate : frameRates)
        names += QString::fromLatin1(rate.name);
    return names;
}

QStringList typeNames() {
    QStringList names;
    for (std::uint64_t code = 0; code < sync::count; ++code)
        names += QString::fromLatin1(syncTypeName(code));
    return names;
}

} // namespace

ImportPanel::ImportPanel(const QString& title, const ReadingOptions& options,
                         const std::function<FileText()>& source, QWidget* parent)
    : QDialog(parent),
      m_summary(newPlainLabel(tr("Reading…"))),
      m_lines(new QTableView),
      m_rate(addChoice(tr("Frame rate"), rateNames(), options.rate)),
      m_type(addChoice(tr("Sync type"), typeNames(), options.type)),
      m_times(addChoice(tr("Times"), {tr("Of the reels"), tr("Of the programme")},
                        static_cast<std::uint64_t>(options.editTimes))) {
    setPlainWindowTitle(*this, title);
    build();
    load(source);
}

QComboBox* ImportPanel::addChoice(const QString& name, const QStringList& choices,
                                  std::uint64_t chosen) {
    auto* box = new QComboBox;
    box->addItems(choices);
    box->setCurrentIndex(static_cast<int>(chosen));
    box->setAccessibleName(name);
    box->setEnabled(false);
    connect(box, &QComboBox::activated, this, &ImportPanel::read);
    return box;
}

void ImportPanel::build() {
    m_lines->setModel(&m_model);
    m_lines->setAccessibleName(tr("Lines"));
    m_lines->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_lines->setTabKeyNavigation(false);
    m_lines->verticalHeader()->hide();
    m_lines->horizontalHeader()->setStretchLastSection(true);
    m_lines->setWordWrap(false);
    setColumnWidths();
    auto* choices = new QFormLayout;
    choices->addRow(tr("Frame &rate if not stated:"), m_rate);
    choices->addRow(tr("&Sync type if not stated:"), m_type);
    choices->addRow(tr("&Times of an edit list:"), m_times);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_add = buttons->addButton(tr("&Add Rows"), QDialogButtonBox::AcceptRole);
    m_add->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_lines, 1);
    layout->addLayout(choices);
    layout->addWidget(buttons);
    for (auto* button : buttons->findChildren<QPushButton*>())
        button->setAutoDefault(false); // Return always adds
    m_add->setDefault(true);
    m_lines->setFocus();
    resize(900, 480);
}

void ImportPanel::load(const std::function<FileText()>& source) {
    inBackground(*this, source, [this](FileText text) {
        m_source = std::make_shared<const FileText>(std::move(text));
        m_times->setEnabled(isEditList(m_source->text));
        read();
    });
}

void ImportPanel::read() {
    m_add->setEnabled(false);
    const auto work = [source = m_source, options = options()] {
        if (source->fault.isNull())
            return readRows(source->text, options);
        ReadRows none;
        none.fault = source->fault;
        return none;
    };
    inBackground(*this, work, [this, reading = ++m_reading](ReadRows rows) {
        if (reading != m_reading)
            return;
        m_model.setRows(std::move(rows));
        show(m_model.rows());
    });
}

void ImportPanel::show(const ReadRows& rows) {
    m_summary->setText(rows.fault.isNull() ? tr("Rows to add: %1. Lines skipped: %2.")
                                                 .arg(rows.rows.size())
                                                 .arg(rows.refused.size())
                                           : tr("Nothing can be read: %1.").arg(rows.fault));
    m_rate->setEnabled(m_rate->isEnabled() || rows.assumedRate);
    m_type->setEnabled(m_type->isEnabled() || rows.assumedType);
    m_add->setEnabled(!rows.rows.empty());
}

/// The last column, which says what becomes of a line, takes the remaining width.
void ImportPanel::setColumnWidths() {
    const auto wide = {QStringLiteral("500000"),
                       QStringLiteral("00000"),
                       QString(24, u'n'),
                       QStringLiteral("00:00:00:00"),
                       QStringLiteral("00:00:00:00"),
                       QString::fromUtf8(longestRateName()),
                       QStringLiteral("MTC")};
    constexpr int padding = 14;
    int column = 0;
    for (const auto& text : wide)
        m_lines->setColumnWidth(column++, m_lines->fontMetrics().horizontalAdvance(text) + padding);
}

ReadingOptions ImportPanel::options() const {
    return {static_cast<std::uint64_t>(m_rate->currentIndex()),
            static_cast<std::uint64_t>(m_type->currentIndex()),
            m_times->currentIndex() == 0 ? EditTimes::source : EditTimes::record};
}

std::optional<ReadRows> ImportPanel::ask() {
    return exec() == Accepted ? std::optional(m_model.rows()) : std::nullopt;
}

} // namespace vexa
