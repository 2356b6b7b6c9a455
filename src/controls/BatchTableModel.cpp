#include "controls/BatchTableModel.h"

#include "controls/plain_text.h"
#include "stripe/ItemTimes.h"
#include "text/duration_text.h"

#include <algorithm>

namespace vexa {

namespace {

const BatchItems& items() {
    static const BatchItems none;
    const auto* list = VexaBatchStripeData::sharedBatchData();
    return list ? list->batchList() : none;
}

/// Empty for a row that never ends.
QString durationOf(const BatchItem& item) {
    const auto time = timeOf(item);
    return time ? QString::fromStdString(durationText(*time)) : QString();
}

QString accessibleText(StripeMark mark) {
    switch (mark) {
    case StripeMark::underWay:
        return BatchTableModel::tr("Under way");
    case StripeMark::finished:
        return BatchTableModel::tr("Finished");
    case StripeMark::stoppedHere:
        return BatchTableModel::tr("Stopped here");
    case StripeMark::none:
        break;
    }
    return {};
}

} // namespace

void BatchTableModel::setColumnIdentifiers(const QStringList& identifiers) {
    beginResetModel();
    m_columns = identifiers;
    endResetModel();
}

void BatchTableModel::reloadData() {
    beginResetModel();
    m_rows = static_cast<int>(items().size());
    endResetModel();
}

void BatchTableModel::markItem(const BatchItemRef& item, StripeMark mark) {
    m_marks[item] = mark;
    if (const auto cell = indexOfItem(item); cell.isValid())
        rowsChanged(cell.row(), cell.row());
}

void BatchTableModel::clearMarks() {
    m_marks.clear();
    if (m_rows > 0)
        rowsChanged(0, m_rows - 1);
}

void BatchTableModel::rowsChanged(int first, int last) {
    const int lastColumn = columnCount() - 1;
    Q_EMIT dataChanged(index(first, 0), index(last, lastColumn),
                       {markRole, Qt::AccessibleDescriptionRole});
}

QModelIndex BatchTableModel::indexOfItem(const BatchItemRef& item) const {
    const auto found = std::ranges::find(items(), item);
    return found == items().end() ? QModelIndex()
                                  : index(static_cast<int>(found - items().begin()), 0);
}

StripeMark BatchTableModel::markOfRow(int row) const {
    const auto found = m_marks.find(items()[static_cast<std::size_t>(row)]);
    return found == m_marks.end() ? StripeMark::none : found->second;
}

int BatchTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int BatchTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant BatchTableModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= items().size())
        return {};
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    if (isText && m_columns[index.column()] == duration)
        return durationOf(*items()[row]);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return singleLine(VexaBatchStripeData::sharedBatchData()->objectValueForTableColumn(
            m_columns[index.column()], row));
    case Qt::AccessibleDescriptionRole:
        return accessibleText(markOfRow(index.row()));
    case markRole:
        return static_cast<int>(markOfRow(index.row()));
    default:
        return {};
    }
}

bool BatchTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable) || row >= items().size())
        return false;
    const auto text = singleLine(value.toString());
    if (text == data(index, role).toString())
        return true; // closing an unchanged editor must not turn line breaks into spaces
    VexaBatchStripeData::sharedBatchData()->setObjectValue(text, m_columns[index.column()], row);
    Q_EMIT dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

QVariant BatchTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const QHash<QString, QString> titles{
        {item_key::reel, tr("Reel")},   {item_key::title, tr("Title")},
        {item_key::start, tr("Start")}, {item_key::stop, tr("Stop")},
        {item_key::rate, tr("Rate")},   {item_key::type, tr("Sync")},
        {duration, tr("Duration")}};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    return titles.value(m_columns[section]);
}

Qt::ItemFlags BatchTableModel::flags(const QModelIndex& index) const {
    auto flags = QAbstractTableModel::flags(index);
    if (index.isValid() && VexaBatchStripeData::shouldEditTableColumn(m_columns[index.column()]))
        flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace vexa
